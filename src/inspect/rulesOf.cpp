#include "inspect/ConditionView.hpp"
#include "inspect/RecordedText.hpp"
#include "rules/ParsedRules.hpp"
#include "rules/printRule.hpp"

#include <qxqrscript/inspect.hpp>

#include <sstream>

namespace QuorelScript {

namespace Inspect {

namespace {

void addPaths(Rule&, const ConditionRule&) {}

void addPaths(Rule& view, const IncludeRule& rule) {
    for (const Expression<QuorelScript::Path>* path : *rule.paths)
        view.paths.push_back(pathView(*path));
}

template <class Recorded>
void appendViews(std::vector<Rule>& views, const std::vector<Recorded*>* rules, RuleKind kind) {
    if (rules == nullptr)
        return;
    for (std::size_t position = 0; position < rules->size(); ++position) {
        const Recorded& rule = *(*rules)[position];
        Rule view;
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
        view.condition = conditionView(*rule.condition);
        addPaths(view, rule);
        views.push_back(std::move(view));
    }
}

void appendKind(std::vector<Rule>& views, const ParsedRules& rules, RuleKind kind) {
    switch (kind) {
    case RuleKind::Exclude:
        return appendViews(views, rules.excludeRuleList(), kind);
    case RuleKind::Prune:
        return appendViews(views, rules.pruneRuleList(), kind);
    case RuleKind::Include:
        return appendViews(views, rules.includeRuleList(), kind);
    }
}

} // namespace

std::vector<Rule> rulesOf(const Rules& rules) {
    std::vector<Rule> views;
    if (const ParsedRules* parsed = dynamic_cast<const ParsedRules*>(&rules))
        for (RuleKind kind : {RuleKind::Exclude, RuleKind::Prune, RuleKind::Include})
            appendKind(views, *parsed, kind);
    return views;
}

std::vector<Rule> rulesOf(const Rules& rules, RuleKind kind) {
    std::vector<Rule> views;
    if (const ParsedRules* parsed = dynamic_cast<const ParsedRules*>(&rules))
        appendKind(views, *parsed, kind);
    return views;
}

} // namespace Inspect

} // namespace QuorelScript
