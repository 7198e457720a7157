// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_RESULTS_HPP
#define QXQR_BENCH_RESULTS_HPP

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qxqr::bench {

// What one benchmark measured: processor seconds per iteration (its median
// when it was repeated) and its counters, as finally computed. The time is
// the thread's processor time, or for a benchmark that times itself, the
// time it measured (which is processor time throughout this suite).
struct Result {
    double seconds = 0;
    std::map<std::string, double> counters;

    std::optional<double> counter(const std::string& name) const;
};

// Shows the runs as the console reporter does, and keeps each benchmark's
// result by the name it was registered under, for the summary that follows.
class ResultsReporter : public benchmark::ConsoleReporter {
public:
    ResultsReporter();
    void ReportRuns(const std::vector<Run>& runs) override;

    // The result of `name`, or none when it was not run (filtered out,
    // skipped or failed).
    std::optional<Result> find(const std::string& name) const;

private:
    void keep(const Run& run);

    std::map<std::string, Result> results;
};

} // namespace qxqr::bench

#endif
