// SPDX-License-Identifier: MIT
#include "observe/RuleView.hpp"

#include "observe/RecordedText.hpp"
#include "rules/printRule.hpp"

#include <sstream>

namespace QuorelScript {

namespace {

void addPaths(Observe::Rule&, const ConditionRule&) {}

void addPaths(Observe::Rule& view, const IncludeRule& rule) {
    for (const Expression<Path>* path : *rule.paths)
        view.paths.push_back(pathView(*path));
}

template <class Recorded>
Observe::Rule viewOf(const Recorded& rule, Observe::RuleKind kind, std::size_t position,
                     std::vector<NodeSource>* sources) {
    Observe::Rule view;
    view.kind = kind;
    view.position = position;
    view.recordedText = rule.debugInfo;
    RecordedText parts = splitRecordedText(rule.debugInfo);
    view.script = std::move(parts.script);
    view.line = parts.line;
    view.text = std::move(parts.text);
    std::ostringstream printed;
    printRule(printed, rule);
    view.printed = printed.str();
    view.condition = conditionView(conditionOf(rule), sources);
    addPaths(view, rule);
    return view;
}

} // namespace

Observe::Rule ruleView(const ExcludeRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Observe::RuleKind::Exclude, position, sources);
}

Observe::Rule ruleView(const PruneRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Observe::RuleKind::Prune, position, sources);
}

Observe::Rule ruleView(const IncludeRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Observe::RuleKind::Include, position, sources);
}

} // namespace QuorelScript
