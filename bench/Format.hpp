// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_FORMAT_HPP
#define QXQR_BENCH_FORMAT_HPP

#include <string>

namespace qxqr::bench {

// A duration in the unit that gives it one to three digits before the
// point, with three significant digits: "15.2 ns", "561 us", "8.30 s".
std::string timeText(double seconds);

// A number with three significant digits: "0.300", "43.0", "1990".
std::string numberText(double value);

} // namespace qxqr::bench

#endif
