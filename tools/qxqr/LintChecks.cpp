// SPDX-License-Identifier: MIT
#include "LintChecks.hpp"

#include "FixedVariables.hpp"
#include "NearestName.hpp"

#include <algorithm>
#include <map>
#include <optional>

namespace qxqr {

namespace {

using QuorelScript::Observe::Condition;
using QuorelScript::Observe::Node;
using QuorelScript::Observe::NodeKind;
using QuorelScript::Observe::Rule;
using QuorelScript::Observe::RuleKind;

// The variables every query binds.
const std::vector<std::string> builtInVariables = {"vantor", "toolbox", "file", "caller", "cwd", "dir",
                                                   "name",   "ext",     "vrk",  "arch",   "lib"};

using Warnings = std::vector<LintWarning>;

void warn(Warnings& warnings, const Rule& rule, const char* check, const std::string& message) {
    warnings.push_back({&rule, rule.script, rule.line, check, message});
}

// Every path of a rule: those of its condition, then its include list.
std::vector<const Node*> pathsOf(const Rule& rule) {
    std::vector<const Node*> paths;
    for (const Node& node : rule.condition.nodes)
        if (node.kind == NodeKind::Path)
            paths.push_back(&node);
    for (const Node& node : rule.paths)
        paths.push_back(&node);
    return paths;
}

// --set binds its names into the conditions alone: in an include path a
// name given with --set stays as written, as an unknown one does.
void unknownVariables(Warnings& warnings, const Rule& rule, const LintSettings& settings) {
    std::vector<std::string> inConditions = builtInVariables;
    inConditions.insert(inConditions.end(), settings.declaredVariables.begin(), settings.declaredVariables.end());
    std::set<std::string> reported;
    const auto check = [&](const Node& path, const std::vector<std::string>& known) {
        for (const std::string& name : path.variables) {
            if (std::find(known.begin(), known.end(), name) != known.end() || !reported.insert(name).second)
                continue;
            std::string message = "unknown variable $" + name + " stays in the text as written";
            if (settings.declaredVariables.count(name))
                message += ": --set binds conditions only and does not reach include paths";
            else if (const std::optional<std::string> nearest = nearestName(name, known))
                message += "; did you mean $" + *nearest + "?";
            warn(warnings, rule, "unknown-variable", message);
        }
    };
    for (const Node& node : rule.condition.nodes)
        if (node.kind == NodeKind::Path)
            check(node, inConditions);
    for (const Node& path : rule.paths)
        check(path, builtInVariables);
}

// A literal that names a directory rather than a file: no variables, no
// wildcard, not ending in '/', and no '.' in its last component.
bool looksLikeADirectory(const std::string& text) {
    const std::string::size_type slash = text.rfind('/');
    return slash != std::string::npos && text.back() != '/' && text.find_first_of("*?") == std::string::npos &&
           text.find('.', slash) == std::string::npos;
}

void prefixSurprises(Warnings& warnings, const Rule& rule, const LintSettings& settings) {
    const Condition& condition = rule.condition;
    for (const Node& node : condition.nodes) {
        if (node.kind != NodeKind::In)
            continue;
        for (std::size_t i = 1; i < node.operands.size(); ++i) {
            const Node& element = condition.nodes[node.operands[i]];
            if (element.kind != NodeKind::Path || !element.variables.empty() || !looksLikeADirectory(element.text) ||
                settings.allowedPrefixes.count(element.text))
                continue;
            warn(warnings, rule, "prefix-surprise",
                 "'in' tests a plain prefix: " + element.text + " also matches " + element.text + "x/...; write " +
                     element.text + "/ for the directory, or pass --allow " + element.text + " if the prefix is meant");
        }
    }
}

void callerInInclude(Warnings& warnings, const Rule& rule) {
    if (rule.kind != RuleKind::Include)
        return;
    for (const Node* path : pathsOf(rule))
        if (std::count(path->variables.begin(), path->variables.end(), "caller")) {
            warn(warnings, rule, "caller-in-include", "$caller is always empty in an include rule");
            return;
        }
}

// The value of a node when no file is known, if it has one: literals, and
// comparisons of paths without variables, decide; exists asks the file
// system and decides nothing here. The condition is one with the fixed
// variables bound by the library itself, so that a path that names no other
// variable has the text a query gives it. The library's own folding, which
// precompute does, is not asked: it would ask the file system about every
// exists. The operands come after their node, so the nodes are valued from
// the last to the first.
std::vector<std::optional<bool>> valuesWithoutAFile(const Condition& condition) {
    const std::vector<Node>& nodes = condition.nodes;
    std::vector<std::optional<bool>> values(nodes.size());
    auto fixedText = [&](std::size_t index) -> std::optional<std::string> {
        const Node& node = nodes[index];
        if (node.kind != NodeKind::Path || node.text.find('$') != std::string::npos)
            return std::nullopt;
        return node.text;
    };
    for (std::size_t index = nodes.size(); index-- > 0;) {
        const Node& node = nodes[index];
        std::vector<std::optional<bool>> operands;
        for (std::size_t operand : node.operands)
            operands.push_back(values[operand]);
        const auto decided = [&](bool decisive) -> std::optional<bool> {
            bool allKnown = true;
            for (const std::optional<bool>& value : operands) {
                if (value == decisive)
                    return decisive;
                allKnown = allKnown && value.has_value();
            }
            return allKnown ? std::optional<bool>(!decisive) : std::nullopt;
        };
        switch (node.kind) {
        case NodeKind::True:
        case NodeKind::False:
            values[index] = node.kind == NodeKind::True;
            break;
        case NodeKind::Not:
            if (operands[0])
                values[index] = !*operands[0];
            break;
        case NodeKind::And:
        case NodeKind::AllOf:
            values[index] = decided(false);
            break;
        case NodeKind::Or:
        case NodeKind::AnyOf:
            values[index] = decided(true);
            break;
        case NodeKind::Equals: {
            const std::optional<std::string> left = fixedText(node.operands[0]), right = fixedText(node.operands[1]);
            if (left && right)
                values[index] = *left == *right;
            break;
        }
        case NodeKind::In: {
            const std::optional<std::string> subject = fixedText(node.operands[0]);
            bool allFixed = subject.has_value();
            for (std::size_t i = 1; allFixed && i < node.operands.size(); ++i) {
                const std::optional<std::string> element = fixedText(node.operands[i]);
                allFixed = element.has_value();
                if (allFixed && subject->compare(0, element->size(), *element) == 0) {
                    values[index] = true;
                    break;
                }
            }
            if (allFixed && !values[index])
                values[index] = false;
            break;
        }
        default:
            break;
        }
    }
    return values;
}

std::optional<bool> valueWithoutAFile(const Rule& rule) {
    return valuesWithoutAFile(rule.condition).front();
}

// The line a warning about `rule` names: the one its statement begins on,
// where the walk of its script found it.
long lineOf(const Rule& rule, const FirstLines& firstLines) {
    const auto firstLine = firstLines.find(&rule);
    return firstLine != firstLines.end() ? firstLine->second : rule.line;
}

std::string place(const Rule& rule, const FirstLines& firstLines) {
    return rule.script + ":" + std::to_string(lineOf(rule, firstLines));
}

// `value` is the condition's value without a file, if it has one.
void constantCondition(Warnings& warnings, const Rule& rule, std::optional<bool> value) {
    if (!value)
        return;
    if (!*value)
        warn(warnings, rule, "constant-condition", "the condition is always false: the rule never fires");
    else if (rule.kind == RuleKind::Include)
        warn(warnings, rule, "constant-condition", "the condition is always true: the paths come with every file");
    else
        warn(warnings, rule, "constant-condition", "the condition is always true: the rule matches every file");
}

// An exclude or prune rule after one of its kind that matches every file.
void unreachableRule(Warnings& warnings, const Rule& rule, const Rule* alwaysTrue, const FirstLines& firstLines) {
    if (alwaysTrue != nullptr)
        warn(warnings, rule, "unreachable-rule",
             "the rule can never decide: the rule at " + place(*alwaysTrue, firstLines) + " matches every file first");
}

// The fixed variables among `names` in the form "$lib = .so", or nothing
// when a name among them is not fixed.
std::optional<std::string> fixedOnly(const std::vector<std::string>& names) {
    std::string shown;
    std::set<std::string> listed;
    for (const std::string& name : names) {
        const std::vector<QuorelScript::Observe::Variable>& fixed = fixedVariables();
        const auto variable = std::find_if(
            fixed.begin(), fixed.end(), [&](const QuorelScript::Observe::Variable& each) { return each.name == name; });
        if (variable == fixed.end())
            return std::nullopt;
        if (listed.insert(name).second)
            shown += (shown.empty() ? "$" : ", $") + name + " = " + variable->value;
    }
    return shown;
}

// Only exclude and prune rules are folded by precompute; an include rule's
// test is asked for every file whatever it names. Precompute binds the
// fixed variables whatever the host configured, so a path that names those
// alone is as fixed as one that names none. The root and the current
// directory it binds only where the host set them, which lint cannot know.
void fixedExists(Warnings& warnings, const Rule& rule) {
    if (rule.kind == RuleKind::Include)
        return;
    const Condition& condition = rule.condition;
    for (const Node& node : condition.nodes) {
        if (node.kind != NodeKind::Exists)
            continue;
        const Node& path = condition.nodes[node.operands[0]];
        if (path.kind != NodeKind::Path)
            continue;
        const std::optional<std::string> fixed = fixedOnly(path.variables);
        if (!fixed)
            continue;
        const std::string named = path.variables.empty()
                                      ? std::string("names no variable")
                                      : "names only variables that precompute always binds (" + *fixed + ")";
        warn(warnings, rule, "fixed-exists",
             "'" + path.text + " exists' " + named + ": a host that precomputes asks it once, not for every file");
    }
}

void duplicateRule(Warnings& warnings, const Rule& rule, const Rule* first, const FirstLines& firstLines) {
    if (first != nullptr)
        warn(warnings, rule, "duplicate-rule", "the same rule as the one at " + place(*first, firstLines));
}

} // namespace

const std::vector<std::string>& lintCheckNames() {
    static const std::vector<std::string> names = {"unknown-variable",   "prefix-surprise",  "caller-in-include",
                                                   "constant-condition", "unreachable-rule", "fixed-exists",
                                                   "duplicate-rule"};
    return names;
}

std::vector<LintWarning> lintRules(const LintedRules& rules, const LintSettings& settings) {
    Warnings warnings;
    std::map<RuleKind, const Rule*> firstAlwaysTrue;
    std::map<std::pair<RuleKind, std::string>, const Rule*> firstPrinted;
    for (std::size_t index = 0; index < rules.asWritten.size(); ++index) {
        const Rule& rule = rules.asWritten[index];
        const std::optional<bool> value =
            index < rules.withFixedValues.size() ? valueWithoutAFile(rules.withFixedValues[index]) : std::nullopt;
        unknownVariables(warnings, rule, settings);
        prefixSurprises(warnings, rule, settings);
        callerInInclude(warnings, rule);
        constantCondition(warnings, rule, value);
        if (rule.kind != RuleKind::Include) {
            unreachableRule(warnings, rule, firstAlwaysTrue[rule.kind], rules.firstLines);
            if (!firstAlwaysTrue[rule.kind] && value == true)
                firstAlwaysTrue[rule.kind] = &rule;
        }
        fixedExists(warnings, rule);
        const Rule*& first = firstPrinted[{rule.kind, rule.printed}];
        duplicateRule(warnings, rule, first, rules.firstLines);
        if (!first)
            first = &rule;
    }
    for (LintWarning& warning : warnings)
        warning.line = lineOf(*warning.rule, rules.firstLines);
    return warnings;
}

} // namespace qxqr
