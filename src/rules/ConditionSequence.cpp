// SPDX-License-Identifier: MIT
#include "rules/ConditionSequence.hpp"

#include <algorithm>

namespace QuorelScript {

ConditionSequence::ConditionSequence(CompiledConditions conditions, ScratchLayout& layout)
    : conditions_(std::move(conditions)) {
    const auto guarded =
        std::count_if(conditions_.begin(), conditions_.end(),
                      [](const std::unique_ptr<CompiledCondition>& c) { return !c->guards().empty(); });
    if (static_cast<std::size_t>(guarded) >= indexThreshold)
        buildIndex(layout);
}

// A condition that never holds is left out altogether; one with a guard is
// found through the index of its variable; the rest are always worked out.
void ConditionSequence::buildIndex(ScratchLayout& layout) {
    indexed_ = true;
    answeredByGuard_.assign(conditions_.size(), false);
    for (std::uint32_t position = 0; position < conditions_.size(); ++position) {
        const CompiledCondition& condition = *conditions_[position];
        const Guards guards = condition.guards();
        if (condition.neverHolds())
            continue;
        if (guards.empty()) {
            unguarded_.push_back(position);
            continue;
        }
        answeredByGuard_[position] = condition.isItsGuard();
        for (const IndexableTest* guard : guards)
            addToIndex(*guard, position);
    }
    std::size_t mostCandidateRuns = 0;
    for (std::size_t variable = 0; variable < queryVariableCount; ++variable) {
        prefixes_[variable].finish();
        mostCandidateRuns += (equalities_[variable].empty() ? 0 : 1) + prefixes_[variable].mostRunsPerLookup();
    }
    candidatesSlot_ = layout.addRunList(mostCandidateRuns);
}

void ConditionSequence::addToIndex(const IndexableTest& test, std::uint32_t position) {
    const std::size_t variable = indexOf(test.variable);
    for (std::string_view text : test.texts) {
        if (test.kind == IndexableTest::Kind::equality)
            equalities_[variable][text].push_back(position);
        else
            prefixes_[variable].add(text, position);
    }
}

std::size_t ConditionSequence::firstHolding(QueryContext& context) const {
    std::size_t found = none;
    walk(context, [&](std::size_t position) {
        if (!holdsAt(position, context))
            return false;
        found = position;
        return true;
    });
    return found;
}

CompiledConditions ConditionSequence::takeConditions() {
    return std::move(conditions_);
}

bool ConditionSequence::holdsAt(std::size_t position, QueryContext& context) const {
    return (indexed_ && answeredByGuard_[position]) || conditions_[position]->holds(context);
}

void ConditionSequence::collectCandidates(QueryContext& context, PositionRuns& candidates) const {
    candidates.clear();
    for (std::size_t variable = 0; variable < queryVariableCount; ++variable) {
        const auto& equalities = equalities_[variable];
        const PrefixTextIndex& prefixes = prefixes_[variable];
        if (equalities.empty() && prefixes.empty())
            continue;
        const std::string_view text = context.variableText(static_cast<QueryVariable>(variable));
        const auto found = equalities.find(text);
        if (found != equalities.end())
            candidates.push_back(runOver(found->second));
        prefixes.collectPrefixesOf(text, candidates);
    }
}

} // namespace QuorelScript
