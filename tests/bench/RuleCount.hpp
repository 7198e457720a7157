// SPDX-License-Identifier: MIT
#ifndef QXQR_TESTS_BENCH_RULECOUNT_HPP
#define QXQR_TESTS_BENCH_RULECOUNT_HPP

#include "Rule.hpp"

#include <cstddef>
#include <vector>

// How many of `rules` are of `kind`.
inline std::size_t countOf(const std::vector<qxqr::bench::Rule>& rules, qxqr::bench::RuleKind kind) {
    std::size_t count = 0;
    for (const qxqr::bench::Rule& rule : rules)
        count += rule.kind == kind;
    return count;
}

#endif
