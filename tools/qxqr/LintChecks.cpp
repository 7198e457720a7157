// SPDX-License-Identifier: MIT
#include "LintChecks.hpp"

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
// system and decides nothing here. The operands come after their node, so
// the nodes are valued from the last to the first.
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

std::string place(const Rule& rule) {
    return rule.script + ":" + std::to_string(rule.line);
}

void constantCondition(Warnings& warnings, const Rule& rule) {
    const std::optional<bool> value = valueWithoutAFile(rule);
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
void unreachableRule(Warnings& warnings, const Rule& rule, const Rule* alwaysTrue) {
    if (alwaysTrue != nullptr)
        warn(warnings, rule, "unreachable-rule",
             "the rule can never decide: the rule at " + place(*alwaysTrue) + " matches every file first");
}

// Only exclude and prune rules are folded by precompute; an include rule's
// test is asked for every file whatever it names.
void fixedExists(Warnings& warnings, const Rule& rule) {
    if (rule.kind == RuleKind::Include)
        return;
    const Condition& condition = rule.condition;
    for (const Node& node : condition.nodes) {
        if (node.kind != NodeKind::Exists)
            continue;
        const Node& path = condition.nodes[node.operands[0]];
        if (path.kind == NodeKind::Path && path.variables.empty())
            warn(warnings, rule, "fixed-exists",
                 "'" + path.text +
                     " exists' names no variable: a host that precomputes asks it once, not for "
                     "every file");
    }
}

void duplicateRule(Warnings& warnings, const Rule& rule, const Rule* first) {
    if (first != nullptr)
        warn(warnings, rule, "duplicate-rule", "the same rule as the one at " + place(*first));
}

} // namespace

const std::vector<std::string>& lintCheckNames() {
    static const std::vector<std::string> names = {"unknown-variable",   "prefix-surprise",  "caller-in-include",
                                                   "constant-condition", "unreachable-rule", "fixed-exists",
                                                   "duplicate-rule"};
    return names;
}

std::vector<LintWarning> lintRules(const std::vector<Rule>& rules, const LintSettings& settings) {
    Warnings warnings;
    std::map<RuleKind, const Rule*> firstAlwaysTrue;
    std::map<std::pair<RuleKind, std::string>, const Rule*> firstPrinted;
    for (const Rule& rule : rules) {
        unknownVariables(warnings, rule, settings);
        prefixSurprises(warnings, rule, settings);
        callerInInclude(warnings, rule);
        constantCondition(warnings, rule);
        if (rule.kind != RuleKind::Include) {
            unreachableRule(warnings, rule, firstAlwaysTrue[rule.kind]);
            if (!firstAlwaysTrue[rule.kind] && valueWithoutAFile(rule) == true)
                firstAlwaysTrue[rule.kind] = &rule;
        }
        fixedExists(warnings, rule);
        const Rule*& first = firstPrinted[{rule.kind, rule.printed}];
        duplicateRule(warnings, rule, first);
        if (!first)
            first = &rule;
    }
    return warnings;
}

} // namespace qxqr
