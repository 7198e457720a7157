// SPDX-License-Identifier: MIT
// Parsing each workload's script, in bytes per second, beside a yardstick
// that only reads every byte of the same text once (summing them): the
// floor any parser of that text stands on. Also the long script of
// disjunctions, the yardstick of its precompute.
#include "Benchmarks.hpp"
#include "CpuClock.hpp"
#include "Names.hpp"
#include "ReplacedAllocator.hpp"
#include "Workload.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

namespace qxqr::bench {

namespace {

void reportBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

// Times the parse alone (the rule set is deleted outside the clock) and
// reports the allocations per byte of script.
void parse(benchmark::State& state, const std::string* text) {
    QuorelScript::Parser parser;
    std::size_t allocations = 0;
    for (auto _ : state) {
        const std::size_t before = ReplacedAllocator::count();
        const double start = threadCpuSeconds();
        std::unique_ptr<QuorelScript::Rules> rules(parser.parse(text->c_str()));
        const double end = threadCpuSeconds();
        allocations += ReplacedAllocator::count() - before;
        if (!rules)
            throw std::runtime_error("a generated script does not parse");
        state.SetIterationTime(end - start);
    }
    reportBytes(state, *text);
    state.counters["allocs/byte"] =
        benchmark::Counter(static_cast<double>(allocations) / static_cast<double>(state.iterations() * text->size()));
}

void byteSum(benchmark::State& state, const std::string* text) {
    for (auto _ : state) {
        unsigned sum = 0;
        for (char c : *text)
            sum += static_cast<unsigned char>(c);
        benchmark::DoNotOptimize(sum);
    }
    reportBytes(state, *text);
}

} // namespace

void registerParseBenchmarks() {
    for (std::size_t ruleCount : ruleCounts) {
        const std::string* script = &workload(ruleCount).script;
        benchmark::RegisterBenchmark(benchmarkName("parse", "script", ruleCount).c_str(), parse, script)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.3);
        benchmark::RegisterBenchmark(benchmarkName("parse", "yardstick", ruleCount).c_str(), byteSum, script)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.1);
    }
    benchmark::RegisterBenchmark(benchmarkName("parse", "disjunctions", disjunctionCount).c_str(), parse,
                                 &disjunctionScript())
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(3);
}

} // namespace qxqr::bench
