// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_POSITIONRUN_HPP
#define QXQRSCRIPT_RULES_POSITIONRUN_HPP

#include <cstdint>
#include <vector>

namespace QuorelScript {

// An ascending run of condition positions that an index found, as a view
// into the index: the positions still to visit, from `next` up to `end`.
struct PositionRun {
    const std::uint32_t* next;
    const std::uint32_t* end;
};

using PositionRuns = std::vector<PositionRun>;

// A run over all the positions of `positions`, which must stay where they are.
inline PositionRun runOver(const std::vector<std::uint32_t>& positions) {
    return {positions.data(), positions.data() + positions.size()};
}

} // namespace QuorelScript

#endif
