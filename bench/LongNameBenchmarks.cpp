// SPDX-License-Identifier: MIT
// A query about a file whose name is nothing but slashes: its normal form
// is "/", and reaching it must not cost more than a pass over the name.
#include "Benchmarks.hpp"
#include "LibraryRules.hpp"
#include "Names.hpp"
#include "Workload.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace qxqr::bench {

namespace {

const char* const skipHugeName = "QXQR_BENCH_SKIP_HUGE_NAME";

void slashes(benchmark::State& state, std::size_t length) {
    const Workload& work = workload(10);
    std::unique_ptr<QuorelScript::Rules> rules = libraryRules(work.script, work.settings, Preparation::precomputed);
    const std::string file(length, '/');
    for (auto _ : state)
        benchmark::DoNotOptimize(rules->isExcluded(file.c_str(), nullptr, work.caller.c_str()));
}

// The floor: a copy of the name with its runs of slashes collapsed, in one
// pass, which the library must at least do to reach the normal form. The
// copy's room is made once, as the library's buffers keep theirs.
void collapsedCopy(benchmark::State& state, std::size_t length) {
    const std::string file(length, '/');
    std::string copy;
    copy.reserve(length);
    for (auto _ : state) {
        copy.assign(file);
        copy.erase(std::unique(copy.begin(), copy.end(), [](char a, char b) { return a == '/' && b == '/'; }),
                   copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
}

void registerSlashes(std::size_t length) {
    benchmark::RegisterBenchmark(benchmarkName("isExcluded", "slashes", length).c_str(), slashes, length)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.5);
    benchmark::RegisterBenchmark(benchmarkName("slashes", "yardstick", length).c_str(), collapsedCopy, length)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.5);
}

} // namespace

void registerLongNameBenchmarks() {
    registerSlashes(slashNameLengths[0]);
    const std::string huge = benchmarkName("isExcluded", "slashes", slashNameLengths[1]);
    if (std::getenv(skipHugeName) != nullptr) {
        std::cout << huge << " is skipped: " << skipHugeName << " is set.\n";
        return;
    }
    std::cout << huge << " is measured; set " << skipHugeName
              << "=1 to skip it, for instance on a build that normalizes names in quadratic time.\n";
    registerSlashes(slashNameLengths[1]);
}

} // namespace qxqr::bench
