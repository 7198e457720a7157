// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_BENCHMARKS_HPP
#define QXQR_BENCH_BENCHMARKS_HPP

#include <cstddef>
#include <string>

namespace qxqr::bench {

// Each registers one family of benchmarks, with its yardsticks.
void registerParseBenchmarks();
void registerPrecomputeBenchmarks();
void registerQueryBenchmarks();
void registerLongNameBenchmarks();
void registerWalkBenchmarks();
void registerDepsBenchmarks();

// The name of a `qxqr deps` figure: "qxqr", "qxqrBundleRules", "ldd",
// "bundleRulesQuestions", or a round of a walk in process, sized by the
// programs of /usr/bin it runs over.
std::string depsBenchmarkName(const std::string& on);

// The walks in process, "walk" and "walkBundleRules", run in turns, this
// many rounds each; a round's figure is named by walkRoundName.
inline constexpr int walkRounds = 3;
std::string walkRoundName(const std::string& walk, int round);

// The lengths of the file names made of slashes only that a query is asked
// about; the second is left out when QXQR_BENCH_SKIP_HUGE_NAME is set.
inline constexpr std::size_t slashNameLengths[] = {65536, 1000000};

} // namespace qxqr::bench

#endif
