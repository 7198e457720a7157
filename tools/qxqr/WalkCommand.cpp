#include "WalkCommand.hpp"

#include "JsonName.hpp"
#include "MatchText.hpp"
#include "Progress.hpp"
#include "QuotedName.hpp"
#include "ScriptLoader.hpp"
#include "Walk.hpp"

#include <CLI/CLI.hpp>

#include <map>

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

std::map<Fate, std::size_t> countFates(const std::vector<Visit>& visits)
{
    std::map<Fate, std::size_t> counts = {{Fate::kept, 0}, {Fate::excluded, 0}, {Fate::pruned, 0}};
    for (const Visit& visit : visits)
        ++counts[visit.fate];
    return counts;
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

Result WalkCommand::run(const std::vector<std::string>& starts)
{
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    configuration.apply(*rules);
    std::vector<Visit> visits;
    {
        Progress progress(!noProgress);
        visits = walk(*rules, starts, progress);
    }
    std::map<Fate, std::size_t> counts = countFates(visits);

    Result result;
    if (format.isJson()) {
        nlohmann::json files = nlohmann::json::array();
        for (const Visit& visit : visits)
            files.push_back(asJson(visit));
        result.out = jsonDocument({{"files", files}, {"summary", summaryJson(counts)}});
    } else {
        for (const Visit& visit : visits)
            result.out += asText(visit, explain);
        result.out += summaryText(counts);
    }
    return result;
}

} // namespace qxqr
