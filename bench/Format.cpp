// SPDX-License-Identifier: MIT
#include "Format.hpp"

#include <cmath>
#include <cstdio>

namespace qxqr::bench {

std::string numberText(double value) {
    const double magnitude = std::fabs(value);
    const int decimals = magnitude >= 100 || magnitude == 0 ? 0 : magnitude >= 10 ? 1 : magnitude >= 1 ? 2 : 3;
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string timeText(double seconds) {
    struct Unit {
        double size;
        const char* name;
    };
    static const Unit units[] = {{1, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
    for (const Unit& unit : units) {
        if (seconds >= unit.size)
            return numberText(seconds / unit.size) + " " + unit.name;
    }
    return numberText(seconds / 1e-9) + " ns";
}

} // namespace qxqr::bench
