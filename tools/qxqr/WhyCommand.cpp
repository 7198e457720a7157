// SPDX-License-Identifier: MIT
#include "WhyCommand.hpp"

#include "WhyJson.hpp"
#include "WhyText.hpp"

namespace qxqr {

namespace {

FileTraces traced(QuorelScript::Rules& rules, const std::string& file, const char* caller) {
    using QuorelScript::Observe::Question;
    using QuorelScript::Observe::traceQuery;
    return {file, traceQuery(rules, Question::Excluded, file.c_str(), caller),
            traceQuery(rules, Question::Pruned, file.c_str(), caller),
            traceQuery(rules, Question::Includes, file.c_str(), caller)};
}

} // namespace

WhyCommand::WhyCommand(CommandLine& qxqr)
    : FileCommand(qxqr, "why", "Show why each file is excluded, pruned or kept: every condition evaluated") {
    format.addOption(command);
    colour.addOption(command);
}

void WhyCommand::rulesLoaded(const QuorelScript::Rules& rules) {
    variables.emplace(rules, configuration.setValues());
    palette.emplace(!format.isJson() && colour.enabled());
}

nlohmann::json WhyCommand::jsonAnswer(QuorelScript::Rules& rules, const std::string& file) {
    return whyJson(traced(rules, file, callerOrNull()), *variables);
}

std::string WhyCommand::textAnswer(QuorelScript::Rules& rules, const std::string& file) {
    return whyText(traced(rules, file, callerOrNull()), *variables, *palette);
}

} // namespace qxqr
