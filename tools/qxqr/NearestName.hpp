// SPDX-License-Identifier: MIT
#ifndef QXQR_NEARESTNAME_HPP
#define QXQR_NEARESTNAME_HPP

#include <optional>
#include <string>
#include <vector>

namespace qxqr {

// The name of `known` nearest to `name`, for a "did you mean": one at most
// two single-character edits away and fewer edits away than `name` is
// long; the first such of the nearest, if any.
std::optional<std::string> nearestName(const std::string& name, const std::vector<std::string>& known);

} // namespace qxqr

#endif
