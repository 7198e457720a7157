// SPDX-License-Identifier: MIT
#include "observe/RuleView.hpp"
#include "rules/ParsedRules.hpp"

#include <qxqrscript/observe.hpp>

namespace QuorelScript::Observe {

namespace {

template <class Recorded>
void appendViews(std::vector<Rule>& views, const std::vector<Recorded*>* rules) {
    if (rules == nullptr)
        return;
    for (std::size_t position = 0; position < rules->size(); ++position)
        views.push_back(ruleView(*(*rules)[position], position));
}

void appendKind(std::vector<Rule>& views, const ParsedRules& rules, RuleKind kind) {
    switch (kind) {
    case RuleKind::Exclude:
        return appendViews(views, rules.excludeRuleList());
    case RuleKind::Prune:
        return appendViews(views, rules.pruneRuleList());
    case RuleKind::Include:
        return appendViews(views, rules.includeRuleList());
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

} // namespace QuorelScript::Observe
