// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_NAMES_HPP
#define QXQR_BENCH_NAMES_HPP

#include <cstddef>
#include <string>
#include <vector>

namespace qxqr::bench {

// The sizes of the generated rule sets.
inline const std::vector<std::size_t> ruleCounts = {10, 100, 1000, 10000};

// The names benchmarks are registered under and the summary finds them by:
// what is measured, on what (asParsed, precomputed, yardstick, ...), and
// its size.
inline std::string benchmarkName(const std::string& what, const std::string& on, std::size_t size) {
    return what + "/" + on + "/" + std::to_string(size);
}

} // namespace qxqr::bench

#endif
