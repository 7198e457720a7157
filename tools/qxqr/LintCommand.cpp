// SPDX-License-Identifier: MIT
#include "LintCommand.hpp"

#include "Assignment.hpp"
#include "FixedVariables.hpp"
#include "LintChecks.hpp"
#include "LintDirectives.hpp"
#include "RuleFirstLines.hpp"
#include "ScriptLoader.hpp"

#include <qxqrscript/observe.hpp>

#include <algorithm>
#include <map>

namespace qxqr {

namespace {

std::string checkName(const std::string& name) {
    const std::vector<std::string>& names = lintCheckNames();
    if (std::find(names.begin(), names.end(), name) != names.end())
        return std::string();
    std::string known;
    for (const std::string& each : names)
        known += (known.empty() ? "" : ", ") + each;
    return "unknown check '" + name + "' (the checks: " + known + ")";
}

// Each script's directives, by the name the library knows it by.
using DirectivesByScript = std::map<std::string, ScriptDirectives>;

DirectivesByScript directivesOf(const ScriptTexts& texts) {
    DirectivesByScript directives;
    for (const ScriptText& text : texts)
        directives.emplace(text.name, ScriptDirectives(text.text));
    return directives;
}

bool isSilenced(const LintWarning& warning, const std::vector<std::string>& disabled,
                const DirectivesByScript& directives, const FirstLines& firstLines) {
    if (std::find(disabled.begin(), disabled.end(), warning.check) != disabled.end())
        return true;
    const auto script = directives.find(warning.script);
    const auto firstLine = firstLines.find(warning.rule);
    return script != directives.end() && firstLine != firstLines.end() &&
           script->second.disabledBefore(firstLine->second).count(warning.check);
}

// In the order of the scripts as given, then of their lines.
void sortByPlace(std::vector<LintWarning>& warnings, const ScriptTexts& scripts) {
    auto order = [&](const LintWarning& warning) {
        const auto script = std::find_if(scripts.begin(), scripts.end(),
                                         [&](const ScriptText& text) { return text.name == warning.script; });
        return std::make_pair(script - scripts.begin(), warning.line);
    };
    std::stable_sort(warnings.begin(), warnings.end(),
                     [&](const LintWarning& a, const LintWarning& b) { return order(a) < order(b); });
}

// What a directive that turns off less than it says is warned about as;
// no check, so nothing turns it off.
const char* const directiveFault = "lint-directive";

void addDirectiveFaults(std::vector<LintWarning>& warnings, const DirectivesByScript& directives) {
    for (const auto& [script, ofScript] : directives)
        for (const DirectiveFault& fault : ofScript.faults(lintCheckNames()))
            warnings.push_back({nullptr, script, fault.line, directiveFault, fault.message});
}

std::string asText(const LintWarning& warning) {
    return warning.script + ":" + std::to_string(warning.line) + ": warning: " + warning.message + " [" +
           warning.check + "]\n";
}

// JSON names a script as given, as its "scripts" list does, rather than by
// the name that text output quotes.
nlohmann::json asJson(const LintWarning& warning, const std::map<std::string, std::string>& givenNames) {
    return {{"script", givenNames.at(warning.script)},
            {"line", warning.line},
            {"check", warning.check},
            {"message", warning.message}};
}

} // namespace

LintCommand::LintCommand(CommandLine& qxqr)
    : ScriptsCommand(qxqr, "lint", "Warn about what the scripts say that is probably not meant") {
    command.option("--set", assignments, "take the variable NAME as known (repeatable)")
        .typeName("NAME=VALUE")
        .check(checkAssignment);
    command.option("--disable", disabled, "turn the check NAME off (repeatable)").typeName("NAME").check(checkName);
    command.option("--allow", allowed, "an 'in' list path meant as a plain prefix (repeatable)").typeName("PATH");
    command.flag("--werror", werror, "exit with status 1 when there are warnings");
    format.addOption(command);
}

Result LintCommand::run(OperandReader&) {
    ScriptTexts texts;
    const std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts, false, &texts);
    LintSettings settings;
    for (const std::string& assignment : assignments)
        settings.declaredVariables.insert(splitAssignment(assignment).first);
    settings.allowedPrefixes.insert(allowed.begin(), allowed.end());

    const std::vector<QuorelScript::Observe::Rule> views = QuorelScript::Observe::rulesOf(*rules);
    // Bound by the library itself, as precompute would bind them; lint asks
    // nothing of the rule set afterwards but what it holds. A name given
    // with --set is the host's to bind, before precompute comes to it.
    for (const QuorelScript::Observe::Variable& fixed : fixedVariables())
        if (settings.declaredVariables.count(fixed.name) == 0)
            rules->bindVariable(fixed.name.c_str(), fixed.value.c_str());
    const std::vector<QuorelScript::Observe::Rule> withFixedValues = QuorelScript::Observe::rulesOf(*rules);
    const FirstLines firstLines = firstLinesOf(texts, views);
    std::vector<LintWarning> warnings = lintRules({views, withFixedValues, firstLines}, settings);
    const DirectivesByScript directives = directivesOf(texts);
    warnings.erase(std::remove_if(warnings.begin(), warnings.end(),
                                  [&](const LintWarning& warning) {
                                      return isSilenced(warning, disabled, directives, firstLines);
                                  }),
                   warnings.end());
    addDirectiveFaults(warnings, directives);
    sortByPlace(warnings, texts);

    Result result;
    if (format.isJson()) {
        std::map<std::string, std::string> givenNames;
        for (std::size_t i = 0; i < texts.size(); ++i)
            givenNames.emplace(texts[i].name, scripts[i]);
        nlohmann::json list = nlohmann::json::array();
        for (const LintWarning& warning : warnings)
            list.push_back(asJson(warning, givenNames));
        result.out = jsonDocument({{"scripts", scripts}, {"warnings", list}});
    } else {
        for (const LintWarning& warning : warnings)
            result.out += asText(warning);
    }
    result.status = werror && !warnings.empty() ? 1 : 0;
    return result;
}

} // namespace qxqr
