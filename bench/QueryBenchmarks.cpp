// SPDX-License-Identifier: MIT
// isExcluded, isPruned and getIncludes over the 20,000 files of each
// workload, on the rule set as parsed and after precompute, beside the
// yardstick that does only the string tests the rules imply. One iteration
// is one query; the files are taken in turn.
#include "Benchmarks.hpp"
#include "LibraryRules.hpp"
#include "Names.hpp"
#include "ReplacedAllocator.hpp"
#include "Workload.hpp"
#include "Yardstick.hpp"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <utility>

namespace qxqr::bench {

namespace {

// An includer that only counts what it is handed.
class CountingIncluder : public QuorelRules::Includer {
public:
    bool include(const char*) override {
        ++count;
        return true;
    }
    std::size_t count = 0;
};

// Rule sets are made once and kept: the benchmark functions run several
// times (to find the iteration count, and once per repetition). Each is
// asked all three questions when it is made, so that what only a first
// query does (filling caches) is not counted.
QuorelScript::Rules& rulesFor(std::size_t ruleCount, Preparation preparation) {
    static std::map<std::pair<std::size_t, Preparation>, std::unique_ptr<QuorelScript::Rules>> made;
    std::unique_ptr<QuorelScript::Rules>& rules = made[{ruleCount, preparation}];
    if (!rules) {
        const Workload& work = workload(ruleCount);
        rules = libraryRules(work.script, work.settings, preparation);
        CountingIncluder ignored;
        for (const std::string& file : work.queries) {
            rules->isExcluded(file.c_str(), nullptr, work.caller.c_str());
            rules->isPruned(file.c_str(), nullptr, work.caller.c_str());
            rules->getIncludes(file.c_str(), nullptr, ignored);
            if (ignored.count > 0)
                break;
        }
    }
    return *rules;
}

Yardstick& yardstickFor(std::size_t ruleCount) {
    static std::map<std::size_t, std::unique_ptr<Yardstick>> made;
    std::unique_ptr<Yardstick>& yardstick = made[ruleCount];
    if (!yardstick) {
        const Workload& work = workload(ruleCount);
        yardstick = std::make_unique<Yardstick>(work.rules, work.settings);
        for (const std::string& file : work.queries)
            yardstick->getIncludes(file, [](const char*) {});
    }
    return *yardstick;
}

// The workload's files for which the include rules add nothing.
const std::vector<std::string>& filesIncludingNothing(std::size_t ruleCount) {
    static std::map<std::size_t, std::vector<std::string>> made;
    auto found = made.find(ruleCount);
    if (found != made.end())
        return found->second;
    std::vector<std::string>& files = made[ruleCount];
    for (const std::string& file : workload(ruleCount).queries) {
        bool includes = false;
        yardstickFor(ruleCount).getIncludes(file, [&](const char*) { includes = true; });
        if (!includes)
            files.push_back(file);
    }
    return files;
}

// Runs `ask(file)` once per iteration over `files` in turn, and reports the
// allocations per query.
template <class Ask>
void eachQuery(benchmark::State& state, const std::vector<std::string>& files, Ask&& ask) {
    std::size_t next = 0;
    const std::size_t allocationsBefore = ReplacedAllocator::count();
    for (auto _ : state) {
        ask(files[next]);
        next = next + 1 == files.size() ? 0 : next + 1;
    }
    const double allocations = static_cast<double>(ReplacedAllocator::count() - allocationsBefore);
    state.counters["allocs/query"] = benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
}

void reportIncludes(benchmark::State& state, std::size_t included) {
    state.counters["includes/query"] =
        benchmark::Counter(static_cast<double>(included), benchmark::Counter::kAvgIterations);
}

void isExcluded(benchmark::State& state, std::size_t ruleCount, Preparation preparation) {
    QuorelScript::Rules& rules = rulesFor(ruleCount, preparation);
    const char* caller = workload(ruleCount).caller.c_str();
    eachQuery(state, workload(ruleCount).queries, [&](const std::string& file) {
        benchmark::DoNotOptimize(rules.isExcluded(file.c_str(), nullptr, caller));
    });
}

void isPruned(benchmark::State& state, std::size_t ruleCount, Preparation preparation) {
    QuorelScript::Rules& rules = rulesFor(ruleCount, preparation);
    const char* caller = workload(ruleCount).caller.c_str();
    eachQuery(state, workload(ruleCount).queries, [&](const std::string& file) {
        benchmark::DoNotOptimize(rules.isPruned(file.c_str(), nullptr, caller));
    });
}

void getIncludes(benchmark::State& state, std::size_t ruleCount, Preparation preparation) {
    QuorelScript::Rules& rules = rulesFor(ruleCount, preparation);
    CountingIncluder includer;
    eachQuery(state, workload(ruleCount).queries,
              [&](const std::string& file) { rules.getIncludes(file.c_str(), nullptr, includer); });
    reportIncludes(state, includer.count);
}

// Where the host's includer receives nothing, a query should not allocate.
void getIncludesOfNothing(benchmark::State& state, std::size_t ruleCount, Preparation preparation) {
    QuorelScript::Rules& rules = rulesFor(ruleCount, preparation);
    CountingIncluder includer;
    eachQuery(state, filesIncludingNothing(ruleCount),
              [&](const std::string& file) { rules.getIncludes(file.c_str(), nullptr, includer); });
    reportIncludes(state, includer.count);
}

void isExcludedYardstick(benchmark::State& state, std::size_t ruleCount) {
    const Yardstick& yardstick = yardstickFor(ruleCount);
    eachQuery(state, workload(ruleCount).queries,
              [&](const std::string& file) { benchmark::DoNotOptimize(yardstick.isExcluded(file)); });
}

void isPrunedYardstick(benchmark::State& state, std::size_t ruleCount) {
    const Yardstick& yardstick = yardstickFor(ruleCount);
    eachQuery(state, workload(ruleCount).queries,
              [&](const std::string& file) { benchmark::DoNotOptimize(yardstick.isPruned(file)); });
}

void getIncludesYardstick(benchmark::State& state, std::size_t ruleCount) {
    Yardstick& yardstick = yardstickFor(ruleCount);
    std::size_t included = 0;
    eachQuery(state, workload(ruleCount).queries, [&](const std::string& file) {
        yardstick.getIncludes(file, [&](const char* path) {
            benchmark::DoNotOptimize(path);
            ++included;
        });
    });
    reportIncludes(state, included);
}

// Repeated, so that the figures are medians; long enough per repetition to
// take many files even where a query costs milliseconds.
void configure(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMicrosecond)->MinTime(0.2)->Repetitions(3)->DisplayAggregatesOnly();
}

using LibraryQuery = void (*)(benchmark::State&, std::size_t, Preparation);
using YardstickQuery = void (*)(benchmark::State&, std::size_t);

void registerQuery(const std::string& name, LibraryQuery library, YardstickQuery yardstick) {
    for (std::size_t ruleCount : ruleCounts) {
        configure(benchmark::RegisterBenchmark(benchmarkName(name, "asParsed", ruleCount).c_str(), library, ruleCount,
                                               Preparation::asParsed));
        configure(benchmark::RegisterBenchmark(benchmarkName(name, "precomputed", ruleCount).c_str(), library,
                                               ruleCount, Preparation::precomputed));
        configure(
            benchmark::RegisterBenchmark(benchmarkName(name, "yardstick", ruleCount).c_str(), yardstick, ruleCount));
    }
}

} // namespace

void registerQueryBenchmarks() {
    registerQuery("isExcluded", isExcluded, isExcludedYardstick);
    registerQuery("isPruned", isPruned, isPrunedYardstick);
    registerQuery("getIncludes", getIncludes, getIncludesYardstick);
    for (std::size_t ruleCount : ruleCounts) {
        configure(benchmark::RegisterBenchmark(benchmarkName("getIncludes", "nothingIncluded", ruleCount).c_str(),
                                               getIncludesOfNothing, ruleCount, Preparation::precomputed));
    }
}

} // namespace qxqr::bench
