#include "WalkCommand.hpp"

#include "JsonName.hpp"
#include "MatchText.hpp"
#include "OperandReader.hpp"
#include "Progress.hpp"
#include "QuotedName.hpp"
#include "ScriptLoader.hpp"
#include "StandardOutput.hpp"
#include "StreamedJsonDocument.hpp"
#include "Walk.hpp"

#include <CLI/CLI.hpp>

#include <map>
#include <optional>

namespace qxqr {

namespace {

std::string asText(const Visit& visit, bool explain)
{
    std::string text = quotedName(visit.file) + ": " + nameOf(visit.fate);
    if (visit.caller)
        text += " (included by " + quotedName(*visit.caller) + ")";
    text += "\n";
    if (explain && visit.rule)
        text += MatchText(*visit.rule).indented("    ");
    return text;
}

nlohmann::json asJson(const Visit& visit)
{
    nlohmann::json item = {{"caller", nullptr}, {"fate", nameOf(visit.fate)}, {"rule", MatchText::toJson(visit.rule)}};
    putName(item, "file", visit.file);
    if (visit.caller)
        putName(item, "caller", *visit.caller);
    putNames(item, "includes", visit.includes);
    return item;
}

std::string summaryText(std::map<Fate, std::size_t> counts)
{
    return std::to_string(counts[Fate::kept]) + " kept, " + std::to_string(counts[Fate::excluded]) +
           " excluded, " + std::to_string(counts[Fate::pruned]) + " pruned\n";
}

nlohmann::json summaryJson(const std::map<Fate, std::size_t>& counts)
{
    nlohmann::json summary = nlohmann::json::object();
    for (const auto& [fate, count] : counts)
        summary[nameOf(fate)] = count;
    return summary;
}

} // namespace

WalkCommand::WalkCommand(CLI::App& qxqr)
    : command(qxqr.add_subcommand("walk", "Follow the include rules from start files and tell each file's fate"))
{
    addScriptsOperand(*command, scripts);
    configuration.addOptions(*command);
    command->add_flag("--explain", explain, "show the rule that excluded or pruned a file");
    command->add_flag("--no-progress", noProgress, "never show progress on standard error");
    format.addOption(*command);
    command->footer("The start files follow '--': qxqr walk [OPTIONS] SCRIPT... -- START...\n"
                    "A START of '-' reads file names from standard input, one a line.");
}

Result WalkCommand::run(OperandReader& starts)
{
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    configuration.apply(*rules);

    std::optional<StreamedJsonDocument> document;
    if (format.isJson())
        document.emplace("files");
    std::map<Fate, std::size_t> counts = {{Fate::kept, 0}, {Fate::excluded, 0}, {Fate::pruned, 0}};
    auto report = [&](const Visit& visit) {
        ++counts[visit.fate];
        if (document)
            document->append(asJson(visit));
        else
            writeStandardOutput(asText(visit, explain));
    };
    {
        Progress progress(!noProgress);
        walk(*rules, starts, report, progress);
    }
    if (document)
        document->finish({{"summary", summaryJson(counts)}});
    else
        writeStandardOutput(summaryText(counts));
    return {};
}

} // namespace qxqr
