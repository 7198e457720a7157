// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_PROGRAMTIMING_HPP
#define QXQR_BENCH_PROGRAMTIMING_HPP

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace qxqr::bench {

// Runs the program `command` once per iteration of `state`, its output
// written to the file `output`, and times each run by the processor time
// it used (its children's included); the average wall-clock time becomes
// the counter wall_ms. A run that fails ends the benchmark with an error,
// and the result is false.
bool timeProgramRuns(benchmark::State& state, const std::vector<std::string>& command, const std::string& output);

} // namespace qxqr::bench

#endif
