// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "expr/MultiOrExpression.hpp"
#include "expr/fixedVariables.hpp"
#include "rules/simplifyCondition.hpp"

#include <memory>
#include <string>

namespace QuorelScript {

namespace {

// Gathers the conditions of all rules, in order, under one or-node that
// becomes the condition of the first rule; the other rules and their texts
// go. A match is then always reported with the first rule's text.
template <class Rule>
void mergeIntoFirst(std::vector<Rule*>& rules) {
    std::unique_ptr<MultiOrExpression> merged(new MultiOrExpression);
    // With room for every condition made first, no append below can fail
    // and leave a condition owned twice.
    merged->operands().reserve(rules.size());
    for (Rule* rule : rules) {
        // A rule left without a condition never holds: it adds nothing to an or.
        if (rule->condition != nullptr)
            merged->append(rule->condition);
        rule->condition = nullptr;
    }
    rules.front()->condition = merged.release();
    for (typename std::vector<Rule*>::size_type i = 1; i < rules.size(); ++i)
        delete rules[i];
    rules.resize(1);
}

template <class Rule>
void mergeAndSimplify(std::vector<Rule*>* rules) {
    if (rules == nullptr || rules->empty())
        return;
    if (rules->size() > 1)
        mergeIntoFirst(*rules);
    Rule& rule = *rules->front();
    if (rule.condition == nullptr)
        return;
    // The rewrite owns the condition from here on, and frees it if it fails;
    // the rule is then left without one.
    Expression<bool>* condition = rule.condition;
    rule.condition = nullptr;
    rule.condition = simplifyCondition(condition);
}

} // namespace

void ParsedRules::precompute() {
    // Before anything changes, so that a precompute that fails half-way
    // leaves no rules prepared from the trees before it.
    rulesChanged();
    if (hasVantorRoot) {
        bindVariable("vantor", vantorRoot.c_str());
        bindVariable("toolbox", (vantorRoot + "/toolbox").c_str());
    }
    if (hasCwd)
        bindVariable("cwd", cwd.c_str());
    bindVariable(archName, archValue);
    bindVariable(libName, libValue);
    bindVariable(vrkName, vrkValue);
    // Include rules stay apart: each of them adds its own paths.
    mergeAndSimplify(excludeRules);
    mergeAndSimplify(pruneRules);
}

} // namespace QuorelScript
