// SPDX-License-Identifier: MIT
#ifndef QXQR_VERDICT_HPP
#define QXQR_VERDICT_HPP

#include <string>

namespace qxqr {

// What the text output says of a file: "excluded", "pruned", both as
// "excluded, pruned", or "kept".
std::string verdict(bool excluded, bool pruned);

} // namespace qxqr

#endif
