// SPDX-License-Identifier: MIT
#include "QueryCommand.hpp"

#include "IncludeList.hpp"
#include "JsonName.hpp"
#include "MatchText.hpp"
#include "QuotedName.hpp"
#include "Verdict.hpp"

#include <qxqrscript/Rules.hpp>

#include <optional>

namespace qxqr {

namespace {

// The rule set's answers for one file.
struct Answer {
    std::string file;
    std::optional<std::string> excludedBy; // the deciding rule's text, if excluded
    std::optional<std::string> prunedBy;   // the deciding rule's text, if pruned
    std::vector<std::string> includes;
};

Answer ask(QuorelScript::Rules& rules, const std::string& file, const char* caller) {
    Answer answer{file, std::nullopt, std::nullopt, {}};
    if (rules.isExcluded(file.c_str(), nullptr, caller))
        answer.excludedBy = rules.getLastMatchText();
    if (rules.isPruned(file.c_str(), nullptr, caller))
        answer.prunedBy = rules.getLastMatchText();
    answer.includes = IncludeList::of(rules, file);
    return answer;
}

std::string asText(const Answer& answer, bool explain) {
    std::string text =
        quotedName(answer.file) + ": " + verdict(answer.excludedBy.has_value(), answer.prunedBy.has_value()) + "\n";
    if (explain) {
        for (const std::optional<std::string>& rule : {answer.excludedBy, answer.prunedBy})
            if (rule)
                text += MatchText(*rule).indented("    ");
    }
    for (const std::string& included : answer.includes)
        text += "    includes " + quotedName(included) + "\n";
    return text;
}

nlohmann::json asJson(const Answer& answer) {
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
    : FileCommand(qxqr, "query", "Tell whether each file is excluded, pruned or kept, and what it includes") {
    command.flag("--explain", explain, "show the rule that excluded or pruned a file");
    format.addOption(command);
}

nlohmann::json QueryCommand::jsonAnswer(QuorelScript::Rules& rules, const std::string& file) {
    return asJson(ask(rules, file, callerOrNull()));
}

std::string QueryCommand::textAnswer(QuorelScript::Rules& rules, const std::string& file) {
    return asText(ask(rules, file, callerOrNull()), explain);
}

} // namespace qxqr
