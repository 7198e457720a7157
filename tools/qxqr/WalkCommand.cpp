// SPDX-License-Identifier: MIT
#include "WalkCommand.hpp"

#include "JsonName.hpp"
#include "MatchText.hpp"
#include "OperandReader.hpp"
#include "Progress.hpp"
#include "QuotedName.hpp"
#include "ScriptLoader.hpp"
#include "StreamedAnswer.hpp"
#include "Walk.hpp"

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <limits>
#include <map>

namespace qxqr {

namespace {

std::string asText(const Visit& visit, bool explain) {
    std::string text = quotedName(visit.file) + ": " + nameOf(visit.fate);
    if (visit.caller)
        text += " (included by " + quotedName(*visit.caller) + ")";
    text += "\n";
    if (explain && visit.rule)
        text += MatchText(*visit.rule).indented("    ");
    return text;
}

nlohmann::json asJson(const Visit& visit) {
    nlohmann::json item = {{"caller", nullptr}, {"fate", nameOf(visit.fate)}, {"rule", MatchText::toJson(visit.rule)}};
    putName(item, "file", visit.file);
    if (visit.caller)
        putName(item, "caller", *visit.caller);
    putNames(item, "includes", visit.includes);
    return item;
}

std::string summaryText(std::map<Fate, std::size_t> counts) {
    return std::to_string(counts[Fate::kept]) + " kept, " + std::to_string(counts[Fate::excluded]) + " excluded, " +
           std::to_string(counts[Fate::pruned]) + " pruned\n";
}

nlohmann::json summaryJson(const std::map<Fate, std::size_t>& counts) {
    nlohmann::json summary = nlohmann::json::object();
    for (const auto& [fate, count] : counts)
        summary[nameOf(fate)] = count;
    return summary;
}

// A check of the option parser: a limit is a whole number, at least
// `least`, that fits the counters.
std::function<std::string(const std::string&)> wholeNumberFrom(std::size_t least) {
    return [least](const std::string& text) {
        std::string problem = "expected a whole number from " + std::to_string(least) + ", got '" + text + "'";
        if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
            return problem;
        errno = 0;
        unsigned long long value = std::strtoull(text.c_str(), nullptr, 10);
        if (errno == ERANGE || value > std::numeric_limits<std::size_t>::max() || value < least)
            return problem;
        return std::string();
    };
}

// Why the walk stopped, naming the file and the option that would let it
// go further.
std::string stopMessage(const WalkStopped& stopped, const WalkLimits& limits) {
    std::string message = "qxqr: walk stopped at " + quotedName(stopped.file);
    if (stopped.caller)
        message += " (included by " + quotedName(*stopped.caller) + ")";
    if (stopped.limit == WalkStopped::Limit::files)
        return message + ": " + std::to_string(stopped.reached) + " files met, beyond --max-files " +
               std::to_string(limits.maxFiles) + "\n";
    return message + ": include depth " + std::to_string(stopped.reached) + ", beyond --max-depth " +
           std::to_string(limits.maxDepth) + "\n";
}

} // namespace

WalkCommand::WalkCommand(CommandLine& qxqr)
    : ScriptsCommand(qxqr, "walk", "Follow the include rules from start files and tell each file's fate", "START") {
    configuration.addOptions(command);
    command.flag("--explain", explain, "show the rule that excluded or pruned a file");
    command.flag("--no-progress", noProgress, "never show progress on standard error");
    command
        .option("--max-files", limits.maxFiles,
                "stop when more than N files are met (default: " + std::to_string(limits.maxFiles) + ")")
        .typeName("N")
        .check(wholeNumberFrom(1));
    command
        .option("--max-depth", limits.maxDepth,
                "stop at a file more than N include steps from a start file (default: " +
                    std::to_string(limits.maxDepth) + ")")
        .typeName("N")
        .check(wholeNumberFrom(0));
    format.addOption(command);
    command.footer("The start files follow '--': qxqr walk [OPTIONS] SCRIPT... -- START...\n"
                   "A START of '-' reads file names from standard input, one a line.");
}

Result WalkCommand::run(OperandReader& starts) {
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    configuration.apply(*rules);

    StreamedAnswer answer(format);
    std::map<Fate, std::size_t> counts = {{Fate::kept, 0}, {Fate::excluded, 0}, {Fate::pruned, 0}};
    auto report = [&](const Visit& visit) {
        ++counts[visit.fate];
        if (answer.isJson())
            answer.addItem(asJson(visit));
        else
            answer.addText(asText(visit, explain));
    };
    // A walk stopped at a limit still ends its answer as a whole walk does,
    // with the counts of the files it visited: the JSON document stays one
    // valid document, and the message and the status tell that it is cut.
    Result result;
    try {
        Progress progress(!noProgress);
        walk(*rules, starts, limits, report, progress);
    } catch (const WalkStopped& stopped) {
        result = {"", stopMessage(stopped, limits), 1};
    }
    answer.finish({{"summary", summaryJson(counts)}}, summaryText(counts));
    return result;
}

} // namespace qxqr
