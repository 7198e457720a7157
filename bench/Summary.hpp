// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_SUMMARY_HPP
#define QXQR_BENCH_SUMMARY_HPP

#include "Results.hpp"

#include <ostream>

namespace qxqr::bench {

// After the runs: every figure beside the yardstick measured in the same
// run, as a ratio, so that a figure reads the same on any machine.
void printRatios(const ResultsReporter& results, std::ostream& out);

// After the runs: each performance target, what was measured for it, and
// whether it is met.
void printTargets(const ResultsReporter& results, std::ostream& out);

} // namespace qxqr::bench

#endif
