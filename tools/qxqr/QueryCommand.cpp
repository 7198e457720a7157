// SPDX-License-Identifier: MIT
#include "QueryCommand.hpp"

#include "IncludeList.hpp"
#include "JsonName.hpp"
#include "MatchText.hpp"
#include "OperandReader.hpp"
#include "QuotedName.hpp"
#include "ScriptLoader.hpp"
#include "StandardOutput.hpp"
#include "StreamedJsonDocument.hpp"
#include "Verdict.hpp"

#include <optional>

namespace qxqr {

namespace {

// The rule set's answers for one file.
struct Answer {
    std::string file;
    std::optional<std::string> excludedBy;  // the deciding rule's text, if excluded
    std::optional<std::string> prunedBy;    // the deciding rule's text, if pruned
    std::vector<std::string> includes;
};

Answer ask(QuorelScript::Rules& rules, const std::string& file, const char* caller)
{
    Answer answer{file, std::nullopt, std::nullopt, {}};
    if (rules.isExcluded(file.c_str(), nullptr, caller))
        answer.excludedBy = rules.getLastMatchText();
    if (rules.isPruned(file.c_str(), nullptr, caller))
        answer.prunedBy = rules.getLastMatchText();
    answer.includes = IncludeList::of(rules, file);
    return answer;
}

std::string asText(const Answer& answer, bool explain)
{
    std::string text = quotedName(answer.file) + ": " + verdict(answer.excludedBy.has_value(), answer.prunedBy.has_value()) + "\n";
    if (explain) {
        for (const std::optional<std::string>& rule : {answer.excludedBy, answer.prunedBy})
            if (rule)
                text += MatchText(*rule).indented("    ");
    }
    for (const std::string& included : answer.includes)
        text += "    includes " + quotedName(included) + "\n";
    return text;
}

nlohmann::json asJson(const Answer& answer)
{
    nlohmann::json item = {{"excluded", answer.excludedBy.has_value()},
                           {"excluded_by", MatchText::toJson(answer.excludedBy)},
                           {"pruned", answer.prunedBy.has_value()},
                           {"pruned_by", MatchText::toJson(answer.prunedBy)}};
    putName(item, "file", answer.file);
    putNames(item, "includes", answer.includes);
    return item;
}

} // namespace

QueryCommand::QueryCommand(CommandLine& qxqr)
    : command(qxqr, "query", "Tell whether each file is excluded, pruned or kept, and what it includes")
{
    addScriptsOperand(command, scripts);
    configuration.addOptions(command);
    callerOption = command.option("--caller", caller, "the file that refers to each FILE ($caller)").typeName("FILE");
    command.flag("--explain", explain, "show the rule that excluded or pruned a file");
    format.addOption(command);
    command.footer("The files follow '--': qxqr query [OPTIONS] SCRIPT... -- FILE...\n"
                   "A FILE of '-' reads file names from standard input, one a line.");
}

Result QueryCommand::run(OperandReader& files)
{
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    configuration.apply(*rules);
    const char* callerOrNull = callerOption.given() ? caller.c_str() : nullptr;

    std::optional<StreamedJsonDocument> document;
    if (format.isJson())
        document.emplace("files");
    std::string file;
    while (files.next(file)) {
        Answer answer = ask(*rules, file, callerOrNull);
        if (document)
            document->append(asJson(answer));
        else
            writeStandardOutput(asText(answer, explain));
    }
    if (document)
        document->finish(nlohmann::json::object());
    return {};
}

} // namespace qxqr
