// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

namespace {

using pelor::end_of_input;

TEST(EndOfInput, MatchesEmptyInputConsumingNothing) {
    EXPECT_EQ(scan(end_of_input(), ""), matched(0));
}

TEST(EndOfInput, MatchesOnlyAtTheEnd) {
    EXPECT_EQ(scan(end_of_input(), "ab"), failed());
    EXPECT_EQ(scan(end_of_input(), "ab", 1), failed());
    EXPECT_EQ(scan(end_of_input(), "ab", 2), matched(0));
}

TEST(EndOfInput, MayBeTriedRepeatedly) {
    EXPECT_EQ(scan(end_of_input() >> end_of_input() >> end_of_input(), ""), matched(0));
    EXPECT_EQ(scan(pelor::ch('a') >> end_of_input() >> end_of_input(), "a"), matched(1));
}

} // namespace
