// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_SUBPROCESS_HPP
#define QXQR_BENCH_SUBPROCESS_HPP

#include <string>
#include <vector>

namespace qxqr::bench {

// How a program run ended, and what it cost.
struct Outcome {
    int status = -1;        // the exit status; -1 when it could not be started or did not exit normally
    double cpuSeconds = 0;  // the processor time it used, in user and system mode
    double wallSeconds = 0; // from starting it to its end
};

// Runs the program `command[0]` (looked up in PATH when it has no slash)
// with the arguments that follow, its standard output written to the file
// `output`, and waits for it.
Outcome runWithOutputTo(const std::vector<std::string>& command, const std::string& output);

} // namespace qxqr::bench

#endif
