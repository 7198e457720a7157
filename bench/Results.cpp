// SPDX-License-Identifier: MIT
#include "Results.hpp"

#include <unistd.h>

namespace qxqr::bench {

namespace {

benchmark::ConsoleReporter::OutputOptions consoleOptions() {
    return isatty(STDOUT_FILENO) ? benchmark::ConsoleReporter::OO_ColorTabular : benchmark::ConsoleReporter::OO_Tabular;
}

} // namespace

std::optional<double> Result::counter(const std::string& name) const {
    auto found = counters.find(name);
    if (found == counters.end())
        return std::nullopt;
    return found->second;
}

ResultsReporter::ResultsReporter() : benchmark::ConsoleReporter(consoleOptions()) {}

void ResultsReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs)
        keep(run);
    benchmark::ConsoleReporter::ReportRuns(runs);
}

// A repeated benchmark reports its repetitions (when shown) before its
// aggregates: the median is kept over them, the other aggregates are not.
void ResultsReporter::keep(const Run& run) {
    if (run.error_occurred)
        return;
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")
        return;
    Result result;
    const bool timedItself = run.run_name.time_type == "manual_time";
    const double time = timedItself ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    result.seconds = time / benchmark::GetTimeUnitMultiplier(run.time_unit);
    for (const auto& [name, counter] : run.counters)
        result.counters[name] = counter.value;
    results[run.run_name.function_name] = result;
}

std::optional<Result> ResultsReporter::find(const std::string& name) const {
    auto found = results.find(name);
    if (found == results.end())
        return std::nullopt;
    return found->second;
}

} // namespace qxqr::bench
