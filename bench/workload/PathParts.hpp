// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_PATHPARTS_HPP
#define QXQR_BENCH_PATHPARTS_HPP

#include <string>
#include <vector>

namespace qxqr::bench {

// A path written as in a script, cut into runs of plain text and variable
// references. A variable name runs as long as letters, digits and '_'
// follow the '$' (so "$name.h" is the variable name, then ".h").
struct PathPart {
    bool isVariable;
    std::string text; // the plain text, or the variable's bare name
};

std::vector<PathPart> pathParts(const std::string& path);

} // namespace qxqr::bench

#endif
