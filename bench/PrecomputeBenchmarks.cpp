// SPDX-License-Identifier: MIT
// precompute on each workload's rule set, and on the long script of
// disjunctions, whose figure stands beside the parse of the same text.
#include "Benchmarks.hpp"
#include "CpuClock.hpp"
#include "LibraryRules.hpp"
#include "Names.hpp"
#include "Workload.hpp"

#include <benchmark/benchmark.h>

namespace qxqr::bench {

namespace {

// Each iteration parses and configures a fresh rule set outside the clock,
// then times its precompute.
void precompute(benchmark::State& state, const std::string* script) {
    const Settings settings;
    for (auto _ : state) {
        std::unique_ptr<QuorelScript::Rules> rules = libraryRules(*script, settings, Preparation::asParsed);
        const double start = threadCpuSeconds();
        rules->precompute();
        const double end = threadCpuSeconds();
        state.SetIterationTime(end - start);
    }
}

} // namespace

void registerPrecomputeBenchmarks() {
    for (std::size_t ruleCount : ruleCounts) {
        benchmark::RegisterBenchmark(benchmarkName("precompute", "script", ruleCount).c_str(), precompute,
                                     &workload(ruleCount).script)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.2);
    }
    // One run: with the current code this one takes seconds.
    benchmark::RegisterBenchmark(benchmarkName("precompute", "disjunctions", disjunctionCount).c_str(), precompute,
                                 &disjunctionScript())
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
}

} // namespace qxqr::bench
