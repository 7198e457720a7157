// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_BENCHMARKS_HPP
#define QXQR_BENCH_BENCHMARKS_HPP

#include <string>

namespace qxqr::bench {

// Each registers one family of benchmarks, with its yardsticks.
void registerParseBenchmarks();
void registerPrecomputeBenchmarks();
void registerQueryBenchmarks();
void registerLongNameBenchmarks();
void registerWalkBenchmarks();
void registerDepsBenchmarks();

// The name of a `qxqr deps` figure: "qxqr", "qxqrBundleRules", "ldd" or
// "bundleRulesQuestions", sized by the programs of /usr/bin it runs over.
std::string depsBenchmarkName(const std::string& on);

} // namespace qxqr::bench

#endif
