// SPDX-License-Identifier: MIT
#include "rules/QueryPlan.hpp"

namespace QuorelScript {

namespace {

template <class Rule>
CompiledConditions compiledConditions(const std::vector<Rule*>* rules, const ConfiguredVariables& configured,
                                      ScratchLayout& layout) {
    CompiledConditions conditions;
    if (rules == nullptr)
        return conditions;
    conditions.reserve(rules->size());
    for (const Rule* rule : *rules)
        conditions.push_back(compileCondition(conditionOf(*rule), configured, layout));
    return conditions;
}

std::vector<std::vector<CompiledPath>> compiledPaths(const IncludeRuleList* rules,
                                                     const ConfiguredVariables& configured, ScratchLayout& layout) {
    std::vector<std::vector<CompiledPath>> paths;
    if (rules == nullptr)
        return paths;
    paths.reserve(rules->size());
    for (const IncludeRule* rule : *rules) {
        paths.emplace_back();
        if (rule->paths == nullptr)
            continue;
        paths.back().reserve(rule->paths->size());
        for (const Expression<Path>* path : *rule->paths)
            paths.back().emplace_back(*path, configured, layout);
    }
    return paths;
}

} // namespace

QueryPlan::QueryPlan(const ExcludeRuleList* excludeRules, const PruneRuleList* pruneRules,
                     const IncludeRuleList* includeRules, const std::string& vantorRoot, const std::string& cwd)
    : configured_(vantorRoot, cwd), exclusions_(compiledConditions(excludeRules, configured_, layout_), layout_),
      prunings_(compiledConditions(pruneRules, configured_, layout_), layout_),
      inclusions_(compiledConditions(includeRules, configured_, layout_), layout_),
      includedPaths_(compiledPaths(includeRules, configured_, layout_)) {}

QueryPlan::~QueryPlan() = default;

QueryContext& QueryPlan::takeContext() {
    if (contextsInUse_ == contexts_.size())
        contexts_.push_back(std::make_unique<QueryContext>(configured_, layout_));
    return *contexts_[contextsInUse_++];
}

} // namespace QuorelScript
