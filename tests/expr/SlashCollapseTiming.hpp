// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_EXPR_SLASHCOLLAPSETIMING_HPP
#define QXQRSCRIPT_TESTS_EXPR_SLASHCOLLAPSETIMING_HPP

#include "expr/pathTextNormalForm.hpp"

#include "BestTime.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

// A long run of slashes costs time in proportion to its length, in the
// locale that is current: sixty-four times `shortLength` slashes may not take
// more than 512 times as long (a collapse that moves the rest of the text at
// each slash would take about 4096 times).
inline void expectCollapsingLinearInTheSlashes(std::size_t shortLength) {
    const auto timeToCollapse = [](std::size_t length) {
        return bestOf(5, [length] {
            std::string slashes(length, '/');
            const double seconds = secondsOf([&slashes] { QuorelScript::collapseDoubledSlashes(slashes); });
            EXPECT_EQ("/", slashes);
            return seconds;
        });
    };
    const double shortTime = timeToCollapse(shortLength);
    const double longTime = timeToCollapse(64 * shortLength);
    EXPECT_LT(longTime, 512 * shortTime + 0.001) << shortTime << " s against " << longTime << " s";
}

#endif
