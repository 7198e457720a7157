// SPDX-License-Identifier: MIT
#ifndef QXQR_ASSIGNMENT_HPP
#define QXQR_ASSIGNMENT_HPP

#include <string>
#include <utility>

namespace qxqr {

// The check of a NAME=VALUE option for the argument parser: empty when
// `assignment` has a '=' after a non-empty name, else what is wrong.
std::string checkAssignment(const std::string& assignment);

// NAME=VALUE split at its first '=', so that a value may hold '=' itself.
std::pair<std::string, std::string> splitAssignment(const std::string& assignment);

} // namespace qxqr

#endif
