// SPDX-License-Identifier: MIT
// A query about a file whose name is nothing but slashes: its normal form
// is "/", and reaching it must not cost more than a pass over the name.
#include "Benchmarks.hpp"
#include "LibraryRules.hpp"
#include "Names.hpp"
#include "Workload.hpp"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>

namespace qxqr::bench {

namespace {

constexpr std::size_t hugeName = 1000000;
const char* const skipHugeName = "QXQR_BENCH_SKIP_HUGE_NAME";

void slashes(benchmark::State& state, std::size_t length)
{
    const Workload& work = workload(10);
    std::unique_ptr<QuorelScript::Rules> rules = libraryRules(work.script, work.settings, Preparation::precomputed);
    const std::string file(length, '/');
    for (auto _ : state)
        benchmark::DoNotOptimize(rules->isExcluded(file.c_str(), nullptr, work.caller.c_str()));
}

void registerSlashes(std::size_t length)
{
    benchmark::RegisterBenchmark(benchmarkName("isExcluded", "slashes", length).c_str(), slashes, length)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.5);
}

} // namespace

void registerLongNameBenchmarks()
{
    registerSlashes(65536);
    const std::string huge = benchmarkName("isExcluded", "slashes", hugeName);
    if (std::getenv(skipHugeName) != nullptr) {
        std::cout << huge << " is skipped: " << skipHugeName << " is set.\n";
        return;
    }
    std::cout << huge << " is measured; set " << skipHugeName
              << "=1 to skip it, for instance on a build that normalizes names in quadratic time.\n";
    registerSlashes(hugeName);
}

} // namespace qxqr::bench
