#include "inspect/RuleView.hpp"

#include "inspect/RecordedText.hpp"
#include "rules/printRule.hpp"

#include <sstream>

namespace QuorelScript {

namespace {

void addPaths(Inspect::Rule&, const ConditionRule&) {}

void addPaths(Inspect::Rule& view, const IncludeRule& rule) {
    for (const Expression<Path>* path : *rule.paths)
        view.paths.push_back(pathView(*path));
}

template <class Recorded>
Inspect::Rule viewOf(const Recorded& rule, Inspect::RuleKind kind, std::size_t position,
                     std::vector<NodeSource>* sources) {
    Inspect::Rule view;
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
    view.condition = conditionView(*rule.condition, sources);
    addPaths(view, rule);
    return view;
}

} // namespace

Inspect::Rule ruleView(const ExcludeRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Inspect::RuleKind::Exclude, position, sources);
}

Inspect::Rule ruleView(const PruneRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Inspect::RuleKind::Prune, position, sources);
}

Inspect::Rule ruleView(const IncludeRule& rule, std::size_t position, std::vector<NodeSource>* sources) {
    return viewOf(rule, Inspect::RuleKind::Include, position, sources);
}

} // namespace QuorelScript
