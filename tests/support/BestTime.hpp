// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_SUPPORT_BESTTIME_HPP
#define QXQRSCRIPT_TESTS_SUPPORT_BESTTIME_HPP

#include <algorithm>
#include <chrono>

// For tests that compare how a cost grows with the size of the work, never
// an absolute time: the ratio of two sizes' times, with a margin wide enough
// that only a change in how the cost grows can cross it.

// How long `work` takes, in seconds.
template <class Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The least of `runs` timings that `timing` returns, so that a busy machine,
// which only ever makes a run slower, does not decide.
template <class Timing>
double bestOf(int runs, Timing timing) {
    double best = timing();
    for (int run = 1; run < runs; ++run)
        best = std::min(best, timing());
    return best;
}

#endif
