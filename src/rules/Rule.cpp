// SPDX-License-Identifier: MIT
#include "rules/Rule.hpp"

#include "expr/BooleanLiteral.hpp"

namespace QuorelScript {

// A rule is named by this text until the parser attaches the real one.
static const char anonymousRuleText[] = "<anonymous rule>";

// The handlers free what the constructor was given when building the rule
// itself fails, so that ownership passes even then.
ConditionRule::ConditionRule(Expression<bool>* condition) try : debugInfo(anonymousRuleText), condition(condition) {
} catch (...) {
    delete condition;
}

ConditionRule::~ConditionRule() {
    delete condition;
}

IncludeRule::IncludeRule(PathList* paths, Expression<bool>* condition) try : ConditionRule(condition), paths(paths) {
} catch (...) {
    deletePathList(paths);
}

IncludeRule::~IncludeRule() {
    deletePathList(paths);
}

const Expression<bool>& conditionOf(const ConditionRule& rule) {
    static const BooleanLiteral neverHolds(false);
    if (rule.condition == nullptr)
        return neverHolds;
    return *rule.condition;
}

} // namespace QuorelScript
