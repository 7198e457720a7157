// SPDX-License-Identifier: MIT
// The benchmark suite: what a host pays for parsing, precomputing and the
// three queries, each figure beside a yardstick measured in the same run,
// then the targets and whether they are met. Google Benchmark's own options
// (--benchmark_filter=REGEX, ...) apply.
#include "Benchmarks.hpp"
#include "Results.hpp"
#include "Summary.hpp"

#include <benchmark/benchmark.h>

#include <iostream>

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    qxqr::bench::registerParseBenchmarks();
    qxqr::bench::registerPrecomputeBenchmarks();
    qxqr::bench::registerQueryBenchmarks();
    qxqr::bench::registerLongNameBenchmarks();
    qxqr::bench::registerWalkBenchmarks();
    qxqr::bench::registerDepsBenchmarks();

    qxqr::bench::ResultsReporter results;
    benchmark::RunSpecifiedBenchmarks(&results);
    benchmark::Shutdown();
    qxqr::bench::printRatios(results, std::cout);
    qxqr::bench::printTargets(results, std::cout);
    return 0;
}
