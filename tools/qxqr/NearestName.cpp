// SPDX-License-Identifier: MIT
#include "NearestName.hpp"

#include <algorithm>

namespace qxqr {

namespace {

// How many single-character edits turn `a` into `b`.
std::size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

} // namespace

std::optional<std::string> nearestName(const std::string& name, const std::vector<std::string>& known) {
    std::optional<std::string> nearest;
    std::size_t best = std::min<std::size_t>(3, name.size());
    for (const std::string& candidate : known) {
        const std::size_t distance = editDistance(name, candidate);
        if (distance < best) {
            best = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace qxqr
