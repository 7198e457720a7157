// SPDX-License-Identifier: MIT
#include "IncludeList.hpp"

namespace qxqr {

bool IncludeList::include(const char* path) {
    included.emplace_back(path);
    return true;
}

std::vector<std::string> IncludeList::of(QuorelRules& rules, const std::string& file) {
    IncludeList list;
    rules.getIncludes(file.c_str(), nullptr, list);
    return list.included;
}

} // namespace qxqr
