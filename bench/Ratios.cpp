// SPDX-License-Identifier: MIT
#include "Benchmarks.hpp"
#include "Format.hpp"
#include "Names.hpp"
#include "Summary.hpp"
#include "WalkTree.hpp"
#include "Workload.hpp"

#include <iomanip>
#include <utility>
#include <vector>

namespace qxqr::bench {

namespace {

using Pair = std::pair<std::string, std::string>; // a figure and its yardstick

std::vector<Pair> pairs() {
    std::vector<Pair> made;
    for (std::size_t ruleCount : ruleCounts)
        made.emplace_back(benchmarkName("parse", "script", ruleCount), benchmarkName("parse", "yardstick", ruleCount));
    for (const char* query : {"isExcluded", "isPruned", "getIncludes"}) {
        for (const char* preparation : {"asParsed", "precomputed"}) {
            for (std::size_t ruleCount : ruleCounts)
                made.emplace_back(benchmarkName(query, preparation, ruleCount),
                                  benchmarkName(query, "yardstick", ruleCount));
        }
    }
    // The files that include nothing, beside the loop over every file.
    for (std::size_t ruleCount : ruleCounts)
        made.emplace_back(benchmarkName("getIncludes", "nothingIncluded", ruleCount),
                          benchmarkName("getIncludes", "yardstick", ruleCount));
    // Preparing the rules, beside reading them.
    for (std::size_t ruleCount : ruleCounts)
        made.emplace_back(benchmarkName("precompute", "script", ruleCount),
                          benchmarkName("parse", "script", ruleCount));
    made.emplace_back(benchmarkName("precompute", "disjunctions", disjunctionCount),
                      benchmarkName("parse", "disjunctions", disjunctionCount));
    for (std::size_t length : slashNameLengths)
        made.emplace_back(benchmarkName("isExcluded", "slashes", length),
                          benchmarkName("slashes", "yardstick", length));
    for (std::size_t folders : walkTreeFolderCounts)
        made.emplace_back(benchmarkName("walk", "qxqr", walkTreeFilesIn(folders)),
                          benchmarkName("walk", "find", walkTreeFilesIn(folders)));
    made.emplace_back(depsBenchmarkName("qxqr"), depsBenchmarkName("ldd"));
    made.emplace_back(depsBenchmarkName("qxqrBundleRules"), depsBenchmarkName("qxqr"));
    made.emplace_back(depsBenchmarkName("bundleRulesQuestions"), depsBenchmarkName("qxqr"));
    return made;
}

} // namespace

void printRatios(const ResultsReporter& results, std::ostream& out) {
    out << "\nEach figure beside its yardstick (processor time per operation; ratio = figure / yardstick)\n";
    out << std::left << std::setw(36) << "figure" << std::setw(12) << "time" << std::setw(36) << "yardstick"
        << std::setw(12) << "time"
        << "ratio\n";
    for (const auto& [figureName, yardstickName] : pairs()) {
        std::optional<Result> figure = results.find(figureName);
        std::optional<Result> yardstick = results.find(yardstickName);
        if (!figure || !yardstick)
            continue;
        out << std::setw(36) << figureName << std::setw(12) << timeText(figure->seconds) << std::setw(36)
            << yardstickName << std::setw(12) << timeText(yardstick->seconds)
            << numberText(figure->seconds / yardstick->seconds) << "\n";
    }
}

} // namespace qxqr::bench
