// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_RULE_HPP
#define QXQRSCRIPT_RULES_RULE_HPP

#include "expr/Expression.hpp"
#include "expr/PathList.hpp"

#include <string>
#include <vector>

namespace QuorelScript {

// What every rule has: the text that names it (script, line and the rule as
// written, attached once the statement is parsed) and its owned condition.
struct ConditionRule {
    explicit ConditionRule(Expression<bool>* condition);
    ConditionRule(const ConditionRule&) = delete;
    ConditionRule& operator=(const ConditionRule&) = delete;
    ~ConditionRule();

    std::string debugInfo;
    Expression<bool>* condition;
};

// A file for which the condition holds is skipped.
struct ExcludeRule : ConditionRule {
    using ConditionRule::ConditionRule;
};

// The analysis does not descend below a file for which the condition holds.
struct PruneRule : ConditionRule {
    using ConditionRule::ConditionRule;
};

// When the condition holds for a file, the paths come with it.
struct IncludeRule : ConditionRule {
    // Takes ownership of both.
    IncludeRule(PathList* paths, Expression<bool>* condition);
    ~IncludeRule();

    PathList* paths;
};

// The condition that `rule` is asked, printed and shown with. A rule left
// without one, by a precompute that ran out of memory while rewriting it,
// never holds: it has the literal false, which asks nothing of the host.
const Expression<bool>& conditionOf(const ConditionRule& rule);

using ExcludeRuleList = std::vector<ExcludeRule*>;
using PruneRuleList = std::vector<PruneRule*>;
using IncludeRuleList = std::vector<IncludeRule*>;

} // namespace QuorelScript

#endif
