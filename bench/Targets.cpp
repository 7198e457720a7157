// SPDX-License-Identifier: MIT
#include "Benchmarks.hpp"
#include "Format.hpp"
#include "Names.hpp"
#include "Summary.hpp"
#include "WalkTree.hpp"
#include "Workload.hpp"

#include <functional>
#include <iomanip>
#include <vector>

namespace qxqr::bench {

namespace {

struct Verdict {
    std::string measured;
    bool met;
};

// A target's test of the results; none when what it needs was not measured.
using Check = std::function<std::optional<Verdict>(const ResultsReporter&)>;

struct Target {
    std::string text;
    Check check;
};

Check timeAtMost(const std::string& name, double seconds) {
    return [=](const ResultsReporter& results) -> std::optional<Verdict> {
        std::optional<Result> result = results.find(name);
        if (!result)
            return std::nullopt;
        return Verdict{timeText(result->seconds), result->seconds <= seconds};
    };
}

Check timeAtMostTimes(const std::string& name, const std::string& other, double factor) {
    return [=](const ResultsReporter& results) -> std::optional<Verdict> {
        std::optional<Result> result = results.find(name);
        std::optional<Result> base = results.find(other);
        if (!result || !base)
            return std::nullopt;
        const double ratio = result->seconds / base->seconds;
        return Verdict{numberText(ratio) + " times", ratio <= factor};
    };
}

Check bytesPerSecondAtLeast(const std::string& name, double megabytes) {
    return [=](const ResultsReporter& results) -> std::optional<Verdict> {
        std::optional<Result> result = results.find(name);
        std::optional<double> rate = result ? result->counter("bytes_per_second") : std::nullopt;
        if (!rate)
            return std::nullopt;
        return Verdict{numberText(*rate / 1e6) + " MB/s", *rate >= megabytes * 1e6};
    };
}

// The worst of the figures `names` by allocations per query beyond the
// paths handed to the includer (none for queries that hand over nothing).
Check allocationsAtMostIncludes(const std::vector<std::string>& names) {
    return [=](const ResultsReporter& results) -> std::optional<Verdict> {
        std::optional<Verdict> worst;
        double worstExcess = 0;
        for (const std::string& name : names) {
            std::optional<Result> result = results.find(name);
            std::optional<double> allocations = result ? result->counter("allocs/query") : std::nullopt;
            if (!allocations)
                continue;
            const double excess = *allocations - result->counter("includes/query").value_or(0);
            if (!worst || excess > worstExcess) {
                worstExcess = excess;
                worst = Verdict{numberText(*allocations) + " allocs/query in " + name, excess <= 0};
            }
        }
        return worst;
    };
}

std::vector<std::string> allFigures(const std::vector<const char*>& queries) {
    std::vector<std::string> names;
    for (const char* query : queries) {
        for (const char* preparation : {"asParsed", "precomputed"}) {
            for (std::size_t ruleCount : ruleCounts)
                names.push_back(benchmarkName(query, preparation, ruleCount));
        }
    }
    return names;
}

std::vector<Target> targets() {
    std::vector<Target> made;
    for (const char* query : {"isExcluded", "isPruned"}) {
        const std::string q = query;
        made.push_back({q + " after precompute, 10 rules: at most 150 ns",
                        timeAtMost(benchmarkName(q, "precomputed", 10), 150e-9)});
        made.push_back({q + " after precompute, 1,000 rules: at most 1 us",
                        timeAtMost(benchmarkName(q, "precomputed", 1000), 1e-6)});
        made.push_back(
            {q + " after precompute, 10,000 rules: at most 3 times 1,000",
             timeAtMostTimes(benchmarkName(q, "precomputed", 10000), benchmarkName(q, "precomputed", 1000), 3)});
        made.push_back(
            {q + " as parsed, 1,000 rules: at most 5 us", timeAtMost(benchmarkName(q, "asParsed", 1000), 5e-6)});
    }
    made.push_back({"isExcluded, isPruned: no allocation per query",
                    allocationsAtMostIncludes(allFigures({"isExcluded", "isPruned"}))});
    std::vector<std::string> includeFigures = allFigures({"getIncludes"});
    for (std::size_t ruleCount : ruleCounts)
        includeFigures.push_back(benchmarkName("getIncludes", "nothingIncluded", ruleCount));
    made.push_back({"getIncludes: no allocation if nothing is included, else one per path",
                    allocationsAtMostIncludes(includeFigures)});
    made.push_back({"qxqr walk of 100,002 files: at most 2 times find",
                    timeAtMostTimes(benchmarkName("walk", "qxqr", walkTreeFiles),
                                    benchmarkName("walk", "find", walkTreeFiles), 2)});
    made.push_back({"parse, 10,000 rules: at least 150 MB/s",
                    bytesPerSecondAtLeast(benchmarkName("parse", "script", 10000), 150)});
    made.push_back({"precompute, 200,000 disjunctions: at most 2 times parsing them",
                    timeAtMostTimes(benchmarkName("precompute", "disjunctions", disjunctionCount),
                                    benchmarkName("parse", "disjunctions", disjunctionCount), 2)});
    made.push_back({"qxqr deps of every program in /usr/bin: at most a tenth of ldd",
                    timeAtMostTimes(depsBenchmarkName("qxqr"), depsBenchmarkName("ldd"), 0.1)});
    made.push_back({"qxqr deps, the bundling rules' questions: under 5 % of the walk",
                    timeAtMostTimes(depsBenchmarkName("bundleRulesQuestions"), depsBenchmarkName("qxqr"), 0.05)});
    made.push_back({"qxqr deps with the bundling rules: at most 1.05 times without",
                    timeAtMostTimes(depsBenchmarkName("qxqrBundleRules"), depsBenchmarkName("qxqr"), 1.05)});
    for (int round = 1; round <= walkRounds; ++round)
        made.push_back({"walk in process, round " + std::to_string(round) + ": bundling rules at most 1.05 times",
                        timeAtMostTimes(depsBenchmarkName(walkRoundName("walkBundleRules", round)),
                                        depsBenchmarkName(walkRoundName("walk", round)), 1.05)});
    made.push_back({"a name of 1,000,000 slashes: under 10 ms",
                    timeAtMost(benchmarkName("isExcluded", "slashes", 1000000), 10e-3)});
    return made;
}

} // namespace

void printTargets(const ResultsReporter& results, std::ostream& out) {
    out << "\nTargets (release build, one core; processor time, the median where repeated)\n";
    for (const Target& target : targets()) {
        std::optional<Verdict> verdict = target.check(results);
        out << std::left << std::setw(72) << target.text;
        if (verdict)
            out << (verdict->met ? "met      " : "NOT met  ") << verdict->measured << "\n";
        else
            out << "not measured\n";
    }
}

} // namespace qxqr::bench
