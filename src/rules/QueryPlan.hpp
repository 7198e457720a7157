// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_QUERYPLAN_HPP
#define QXQRSCRIPT_RULES_QUERYPLAN_HPP

#include "rules/CompiledPath.hpp"
#include "rules/ConditionSequence.hpp"
#include "rules/ConfiguredVariables.hpp"
#include "rules/QueryContext.hpp"
#include "rules/Rule.hpp"

#include <memory>
#include <string>
#include <vector>

namespace QuorelScript {

// A rule set's rules prepared for queries under its present configuration:
// the conditions of each kind in rule order, and the paths of the include
// rules. It refers to the rules' trees, so it is made anew whenever they or
// the configuration change. It also keeps the contexts that queries work
// in, one per query running at a time.
class QueryPlan {
public:
    // Null lists are prepared as empty ones.
    QueryPlan(const ExcludeRuleList* excludeRules, const PruneRuleList* pruneRules, const IncludeRuleList* includeRules,
              const std::string& vantorRoot, const std::string& cwd);
    QueryPlan(const QueryPlan&) = delete;
    QueryPlan& operator=(const QueryPlan&) = delete;
    ~QueryPlan();

    const ConditionSequence& exclusions() const { return exclusions_; }
    const ConditionSequence& prunings() const { return prunings_; }
    const ConditionSequence& inclusions() const { return inclusions_; }
    // The paths of the include rule at `position`, in list order.
    const std::vector<CompiledPath>& includedPaths(std::size_t position) const { return includedPaths_[position]; }

    // A context for one query, to be given back when the query ends; a
    // query that starts while another runs (from a host's callback) gets a
    // context of its own. Queries end in the reverse order of their start,
    // so the contexts are a stack, and giving one back allocates nothing.
    QueryContext& takeContext();
    void giveBackContext() { --contextsInUse_; }

    // A plan that was replaced while queries still ran on it, kept until
    // they have ended; chained through the plans themselves, so that keeping
    // one allocates nothing.
    std::unique_ptr<QueryPlan> replaced;

private:
    ConfiguredVariables configured_;
    ScratchLayout layout_;
    ConditionSequence exclusions_;
    ConditionSequence prunings_;
    ConditionSequence inclusions_;
    std::vector<std::vector<CompiledPath>> includedPaths_;
    std::vector<std::unique_ptr<QueryContext>> contexts_;
    std::size_t contextsInUse_{0};
};

} // namespace QuorelScript

#endif
