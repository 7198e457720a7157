// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_FILEPARTS_HPP
#define QXQR_BENCH_FILEPARTS_HPP

#include "Rule.hpp"

#include <string_view>

namespace qxqr::bench {

// A file path cut as the rules language cuts it: the directory up to the
// last '/', the extension from the last '.' (when it is not the first
// character and comes after the last '/'), and the name between them.
struct FileParts {
    std::string_view file;
    std::string_view dir;
    std::string_view name;
    std::string_view ext;

    std::string_view operator[](FileVariable variable) const;
};

// The parts of `file`, which must already be in normal form (no doubled
// slashes, no blanks around it); they view its characters.
FileParts fileParts(std::string_view file);

} // namespace qxqr::bench

#endif
