// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_PARSEDRULES_HPP
#define QXQRSCRIPT_RULES_PARSEDRULES_HPP

#include "rules/Rule.hpp"

#include <qxqrscript/Rules.hpp>

#include <memory>
#include <string>
#include <vector>

namespace QuorelScript {

class ConditionSequence;
class QueryPlan;

// The rule set made from scripts: three lists of rules, each owned with its
// rules and their conditions. A null list and an empty one answer alike;
// they differ only in print().
class ParsedRules : public Rules {
public:
    // Takes ownership of the three lists; note the order of the arguments.
    ParsedRules(ExcludeRuleList* excludeRules, PruneRuleList* pruneRules, IncludeRuleList* includeRules);
    ParsedRules(const ParsedRules&) = delete;
    ParsedRules& operator=(const ParsedRules&) = delete;
    ~ParsedRules() override;

    bool isExcluded(const char* file, const char* reserved, const char* caller) override;
    bool isPruned(const char* file, const char* reserved, const char* caller) override;
    void getIncludes(const char* file, const char* reserved, QuorelRules::Includer& includer) override;
    void setVantorRoot(const char* root) override;
    void setCwd(const char* dir) override;
    int setCwdFromProcess() override;
    void bindVariable(const char* name, const char* value) override;
    void precompute() override;
    std::ostream& print(std::ostream& os) const override;
    const std::string& getLastMatchText() const override;

    // Append one rule, taking ownership; a list that is still null is
    // created first.
    void appendExcludeRule(ExcludeRule* rule);
    void appendIncludeRule(IncludeRule* rule);
    void appendPruneRule(PruneRule* rule);

    // The three lists, for those who evaluate them on their own.
    const ExcludeRuleList* excludeRuleList() const { return excludeRules; }
    const PruneRuleList* pruneRuleList() const { return pruneRules; }
    const IncludeRuleList* includeRuleList() const { return includeRules; }
    // The configuration the queries bind their variables from, as stored
    // (empty when unset).
    const std::string& configuredRoot() const { return vantorRoot; }
    const std::string& configuredCwd() const { return cwd; }
    // Takes `rule`'s text as the last match, as a query that it decided does.
    void recordMatch(const ConditionRule& rule) { lastMatchText = rule.debugInfo; }

private:
    class RunningQuery;

    // The first rule of `rules` whose condition holds for the query decides:
    // its text becomes the last match text. A null list matches nothing.
    template <class Rule>
    bool firstMatch(const std::vector<Rule*>* rules, const ConditionSequence& (QueryPlan::*conditions)() const,
                    const char* file, const char* caller);
    // The rules or the configuration changed: the queries prepare anew.
    void rulesChanged();
    // Whether this query is answered rule by rule, without preparing.
    bool answersPlainly();

    ExcludeRuleList* excludeRules;
    IncludeRuleList* includeRules;
    PruneRuleList* pruneRules;
    std::string vantorRoot;
    std::string cwd;
    bool hasVantorRoot{false};
    bool hasCwd{false};
    std::string lastMatchText;

    // The rules prepared for the queries under the present configuration,
    // made by the first query that needs them. A plan that changes while
    // queries run (from a host's callback) is kept until they have ended.
    std::unique_ptr<QueryPlan> plan;
    std::unique_ptr<QueryPlan> replacedPlans;
    int runningQueries{0};
    // How many queries after a change are answered plainly before the
    // rules are prepared again.
    static constexpr unsigned plainAnswersBeforePreparing = 4;
    bool preparedOnce{false};
    unsigned plainAnswersSinceChange{0};
};

} // namespace QuorelScript

#endif
