// SPDX-License-Identifier: MIT
#include "ProgramTiming.hpp"

#include "Subprocess.hpp"

namespace qxqr::bench {

bool timeProgramRuns(benchmark::State& state, const std::vector<std::string>& command, const std::string& output) {
    double wallSeconds = 0;
    for (auto _ : state) {
        const Outcome outcome = runWithOutputTo(command, output);
        if (outcome.status != 0) {
            state.SkipWithError((command[0] + " failed").c_str());
            return false;
        }
        state.SetIterationTime(outcome.cpuSeconds);
        wallSeconds += outcome.wallSeconds;
    }
    state.counters["wall_ms"] = benchmark::Counter(wallSeconds * 1e3, benchmark::Counter::kAvgIterations);
    return true;
}

} // namespace qxqr::bench
