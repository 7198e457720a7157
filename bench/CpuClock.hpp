// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_CPUCLOCK_HPP
#define QXQR_BENCH_CPUCLOCK_HPP

#include <ctime>

namespace qxqr::bench {

// The processor time this thread has used, in seconds. The suite times by
// it rather than by the wall clock, so that other work on a shared machine
// does not count against the library.
inline double threadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace qxqr::bench

#endif
