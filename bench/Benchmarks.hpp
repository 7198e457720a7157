#ifndef QXQR_BENCH_BENCHMARKS_HPP
#define QXQR_BENCH_BENCHMARKS_HPP

namespace qxqr::bench {

// Each registers one family of benchmarks, with its yardsticks.
void registerParseBenchmarks();
void registerPrecomputeBenchmarks();
void registerQueryBenchmarks();
void registerLongNameBenchmarks();
void registerWalkBenchmarks();

} // namespace qxqr::bench

#endif
