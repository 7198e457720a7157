// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "expr/Bindings.hpp"
#include "expr/OwnedPointers.hpp"
#include "expr/Path.hpp"
#include "host/textOrEmpty.hpp"
#include "rules/QueryPlan.hpp"
#include "rules/expandIncludeRule.hpp"
#include "rules/plainQueries.hpp"
#include "rules/printRule.hpp"

#include <qxqrscript/host.hpp>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>

namespace QuorelScript {

namespace {

template <class Rule>
void substituteInto(std::vector<Rule*>* rules, const Bindings& bindings) {
    if (rules == nullptr)
        return;
    for (Rule* rule : *rules)
        if (rule->condition != nullptr)
            rule->condition->substituteVariables(bindings);
}

// One tab-led line per rule, then an empty line; nothing for a null list.
template <class Rule>
void printBlock(std::ostream& os, const std::vector<Rule*>* rules) {
    if (rules == nullptr)
        return;
    for (const Rule* rule : *rules) {
        os << '\t';
        printRule(os, *rule);
        os << std::endl;
    }
    os << std::endl;
}

} // namespace

// One query on the rule set: the plan, prepared first if need be, and a
// context started for the file asked about.
class ParsedRules::RunningQuery {
public:
    RunningQuery(ParsedRules& rules, const char* file, const char* caller) : rules_(rules) {
        if (!rules.plan) {
            rules.plan = std::make_unique<QueryPlan>(rules.excludeRules, rules.pruneRules, rules.includeRules,
                                                     rules.vantorRoot, rules.cwd);
            rules.preparedOnce = true;
        }
        plan_ = rules.plan.get();
        context_ = &plan_->takeContext();
        ++rules.runningQueries;
        try {
            context_->start(file, caller);
        } catch (...) {
            // Copying the names may run out of memory; the query then never
            // ran, and must not count as running.
            end();
            throw;
        }
    }
    RunningQuery(const RunningQuery&) = delete;
    RunningQuery& operator=(const RunningQuery&) = delete;
    ~RunningQuery() { end(); }

    const QueryPlan& plan() const { return *plan_; }
    QueryContext& context() { return *context_; }

private:
    // Gives the context back; the last query to end frees the plans that
    // were replaced while it ran.
    void end() {
        plan_->giveBackContext();
        if (--rules_.runningQueries == 0)
            rules_.replacedPlans.reset();
    }

    ParsedRules& rules_;
    QueryPlan* plan_;
    QueryContext* context_;
};

ParsedRules::ParsedRules(ExcludeRuleList* excludeRules, PruneRuleList* pruneRules, IncludeRuleList* includeRules)
    : excludeRules(excludeRules), includeRules(includeRules), pruneRules(pruneRules) {}

ParsedRules::~ParsedRules() {
    deleteOwned(excludeRules);
    deleteOwned(includeRules);
    deleteOwned(pruneRules);
}

template <class Rule>
bool ParsedRules::firstMatch(const std::vector<Rule*>* rules, const ConditionSequence& (QueryPlan::*conditions)() const,
                             const char* file, const char* caller) {
    if (rules == nullptr)
        return false;
    if (answersPlainly()) {
        const Rule* matching = firstMatchingRule(*rules, Bindings(vantorRoot.c_str(), file, caller, cwd.c_str()));
        if (matching == nullptr)
            return false;
        lastMatchText = matching->debugInfo;
        return true;
    }
    RunningQuery query(*this, file, caller);
    const std::size_t position = (query.plan().*conditions)().firstHolding(query.context());
    if (position == ConditionSequence::none)
        return false;
    lastMatchText = (*rules)[position]->debugInfo;
    return true;
}

bool ParsedRules::isExcluded(const char* file, const char* /*reserved*/, const char* caller) {
    return firstMatch(excludeRules, &QueryPlan::exclusions, file, caller);
}

bool ParsedRules::isPruned(const char* file, const char* /*reserved*/, const char* caller) {
    return firstMatch(pruneRules, &QueryPlan::prunings, file, caller);
}

// Every rule whose condition holds adds its paths, in rule order.
void ParsedRules::getIncludes(const char* file, const char* /*reserved*/, QuorelRules::Includer& includer) {
    if (includeRules == nullptr)
        return;
    // Include rules are asked about a file alone: $caller is empty for them.
    if (answersPlainly()) {
        includeFromEachRule(*includeRules, 0, Bindings(vantorRoot.c_str(), file, nullptr, cwd.c_str()), includer);
        return;
    }
    RunningQuery query(*this, file, nullptr);
    QueryContext& context = query.context();
    const QueryPlan& plan = query.plan();
    std::size_t rulesDone = 0;
    plan.inclusions().forEachHolding(context, [&](std::size_t position) {
        for (const CompiledPath& path : plan.includedPaths(position))
            includeFilesOf(path.terminatedText(context), includer);
        rulesDone = position + 1;
        return this->plan.get() != &plan;
    });
    if (this->plan.get() == &plan)
        return;
    // The includer changed the rules (bound a variable, say): the rules
    // after the ones done are asked as they are now, one by one, with the
    // variables the query began with.
    includeFromEachRule(*includeRules, rulesDone, context.variables().bindings(), includer);
}

// Preparing costs as much as a few plain answers. The first query prepares
// at once; after a change, a few queries are answered plainly first, so that
// a host that changes the rule set between almost every two queries pays no
// more than it would without preparing.
bool ParsedRules::answersPlainly() {
    if (plan || !preparedOnce || plainAnswersSinceChange == plainAnswersBeforePreparing)
        return false;
    ++plainAnswersSinceChange;
    return true;
}

void ParsedRules::rulesChanged() {
    plainAnswersSinceChange = 0;
    if (runningQueries > 0 && plan) {
        plan->replaced = std::move(replacedPlans);
        replacedPlans = std::move(plan);
    }
    plan.reset();
}

void ParsedRules::setVantorRoot(const char* root) {
    vantorRoot = textOrEmpty(root);
    hasVantorRoot = true;
    rulesChanged();
}

void ParsedRules::setCwd(const char* dir) {
    cwd = textOrEmpty(dir);
    hasCwd = true;
    rulesChanged();
}

int ParsedRules::setCwdFromProcess() {
    // The buffer's size is part of the call's contract with the host rather
    // than a guess at the longest path: a host may define its own hbGetcwd in
    // place of the library's, and that one is handed this size. A current
    // directory whose name, with its NUL, needs more makes the call fail; the
    // buffer starts zeroed, so the directory is then the empty text.
    constexpr std::size_t hostCwdBufferSize = 8706;
    char buffer[hostCwdBufferSize] = {};
    hbGetcwd(buffer, sizeof buffer);
    const Path directory{std::string(buffer)};
    setCwd(directory.c_str());
    return 0;
}

void ParsedRules::bindVariable(const char* name, const char* value) {
    if (name == nullptr || value == nullptr)
        return;
    // Before anything changes: a substitution that fails half-way must not
    // leave the queries on rules prepared from the trees before it.
    rulesChanged();
    Bindings binding;
    binding.emplace(Path(std::string(name)), Path(std::string(value)));
    // Only the conditions: the paths of include rules take their variables
    // from each query.
    substituteInto(excludeRules, binding);
    substituteInto(pruneRules, binding);
    substituteInto(includeRules, binding);
}

std::ostream& ParsedRules::print(std::ostream& os) const {
    printBlock(os, excludeRules);
    printBlock(os, pruneRules);
    printBlock(os, includeRules);
    return os;
}

const std::string& ParsedRules::getLastMatchText() const {
    return lastMatchText;
}

// Each takes ownership of `rule`, also when the list cannot grow. A rule set
// made from a script without rules of this kind has no list for them;
// appending a later script's rule creates it, so that several scripts can be
// combined in any order. The list is made only when a rule comes: a kind that
// never gets one stays null, and a null list prints nothing, not even the
// empty line that ends a block.
void ParsedRules::appendExcludeRule(ExcludeRule* rule) {
    pushOwnedCreatingList(excludeRules, rule);
    rulesChanged();
}

void ParsedRules::appendIncludeRule(IncludeRule* rule) {
    pushOwnedCreatingList(includeRules, rule);
    rulesChanged();
}

void ParsedRules::appendPruneRule(PruneRule* rule) {
    pushOwnedCreatingList(pruneRules, rule);
    rulesChanged();
}

} // namespace QuorelScript
