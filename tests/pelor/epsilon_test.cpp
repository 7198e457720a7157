// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using pelor::epsilon;

TEST(Epsilon, MatchesAnywhereConsumingNothing) {
    EXPECT_EQ(scan(epsilon(), "abc"), matched(0));
    EXPECT_EQ(scan(epsilon(), "abc", 2), matched(0));
}

TEST(Epsilon, MatchesAtTheEnd) {
    EXPECT_EQ(scan(epsilon(), "abc", 3), matched(0));
    EXPECT_EQ(scan(epsilon(), ""), matched(0));
}

TEST(Epsilon, RunsItsActionWhenThatPointIsReached) {
    std::vector<std::string> log;
    const auto expression = epsilon()[Recorder(log, "reached")] >> pelor::ch('x')[Recorder(log, "x")];
    EXPECT_EQ(scan(expression, "x"), matched(1));
    EXPECT_EQ(log, (std::vector<std::string>{"reached:", "x:x"}));
    log.clear();
    EXPECT_EQ(scan(expression, "y"), failed());
    EXPECT_EQ(log, (std::vector<std::string>{"reached:"}));
}

} // namespace
