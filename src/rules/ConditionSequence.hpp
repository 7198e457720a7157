// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_CONDITIONSEQUENCE_HPP
#define QXQRSCRIPT_RULES_CONDITIONSEQUENCE_HPP

#include "rules/CompiledCondition.hpp"
#include "rules/PositionRun.hpp"
#include "rules/PrefixTextIndex.hpp"
#include "rules/QueryContext.hpp"
#include "rules/QueryVariable.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace QuorelScript {

// Conditions in a fixed order (the rules of one kind, the operands of an
// or), asked which of them hold for a query. Worked out one by one in order,
// the answer costs one evaluation per condition; here the many conditions
// that must pass a test of a variable against fixed texts are looked up in
// an index instead, and only those whose test passes are worked out, in
// order among the conditions that no index covers. A condition is skipped
// only when such a test fails, and the test comes before anything in the
// condition that asks the host (CompiledCondition::guards), so nothing a
// host can see differs from the one-by-one answer: every host-service call
// is still made, in its turn.
class ConditionSequence {
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    ConditionSequence(CompiledConditions conditions, ScratchLayout& layout);
    ConditionSequence(const ConditionSequence&) = delete;
    ConditionSequence& operator=(const ConditionSequence&) = delete;

    // The position of the first condition that holds, or `none`.
    std::size_t firstHolding(QueryContext& context) const;

    // Calls `visit` with the position of every condition that holds, in
    // order, until it returns true.
    template <class Visit>
    void forEachHolding(QueryContext& context, Visit visit) const {
        walk(context, [&](std::size_t position) { return holdsAt(position, context) && visit(position); });
    }

    const CompiledConditions& conditions() const { return conditions_; }
    // Gives up the conditions; the sequence must not be asked again.
    CompiledConditions takeConditions();

private:
    // Fewer guarded conditions than this are simply worked out one by one.
    static constexpr std::size_t indexThreshold = 8;

    void buildIndex(ScratchLayout& layout);
    void addToIndex(const IndexableTest& test, std::uint32_t position);
    bool holdsAt(std::size_t position, QueryContext& context) const;
    // The runs of positions whose guards pass, as the indexes hold them.
    void collectCandidates(QueryContext& context, PositionRuns& candidates) const;

    // Calls `step` with the positions that may hold, in ascending order,
    // until it returns true.
    template <class Step>
    void walk(QueryContext& context, Step step) const;

    CompiledConditions conditions_;
    bool indexed_{false};
    std::size_t candidatesSlot_{0};
    // The conditions that no index covers, by position.
    std::vector<std::uint32_t> unguarded_;
    // Per position: whether a passing guard is all the condition asks.
    std::vector<bool> answeredByGuard_;
    std::array<std::unordered_map<std::string_view, std::vector<std::uint32_t>>, queryVariableCount> equalities_;
    std::array<PrefixTextIndex, queryVariableCount> prefixes_;
};

// The runs that the indexes found and the unguarded conditions, merged into
// one ascending walk as it goes: a few runs are open at a time, so taking the
// smallest head is a short scan, and a walk that stops early pays for no
// more than it visited. A position that several runs hold (a condition with
// more than one passing guard) is visited once.
template <class Step>
void ConditionSequence::walk(QueryContext& context, Step step) const {
    if (!indexed_) {
        for (std::size_t position = 0; position < conditions_.size(); ++position)
            if (step(position))
                return;
        return;
    }
    PositionRuns& candidates = context.runs(candidatesSlot_);
    collectCandidates(context, candidates);
    auto unguarded = unguarded_.begin();
    std::uint32_t visited = 0;
    bool anyVisited = false;
    for (;;) {
        PositionRun* smallest = nullptr;
        for (PositionRun& run : candidates)
            if (run.next != run.end && (smallest == nullptr || *run.next < *smallest->next))
                smallest = &run;
        std::uint32_t position;
        if (unguarded != unguarded_.end() && (smallest == nullptr || *unguarded < *smallest->next))
            position = *unguarded++;
        else if (smallest != nullptr)
            position = *smallest->next++;
        else
            return;
        if (anyVisited && position == visited)
            continue;
        visited = position;
        anyVisited = true;
        if (step(position))
            return;
    }
}

} // namespace QuorelScript

#endif
