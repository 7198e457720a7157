// SPDX-License-Identifier: MIT
#include "Assignment.hpp"

namespace qxqr {

std::string checkAssignment(const std::string& assignment) {
    std::string::size_type equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0)
        return "expected NAME=VALUE, got '" + assignment + "'";
    return std::string();
}

std::pair<std::string, std::string> splitAssignment(const std::string& assignment) {
    std::string::size_type equals = assignment.find('=');
    return {assignment.substr(0, equals), assignment.substr(equals + 1)};
}

} // namespace qxqr
