// SPDX-License-Identifier: MIT
#include "Verdict.hpp"

namespace qxqr {

std::string verdict(bool excluded, bool pruned) {
    if (excluded && pruned)
        return "excluded, pruned";
    if (excluded)
        return "excluded";
    if (pruned)
        return "pruned";
    return "kept";
}

} // namespace qxqr
