// SPDX-License-Identifier: MIT
#include "pelor/parser.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using pelor::detail::all_or_nothing;

const std::string text = "abcdef";

TEST(AllOrNothing, SucceedingStepsMoveThePositionToWhereTheyStopped) {
    std::string::const_iterator pos = text.begin() + 1;
    EXPECT_TRUE(all_or_nothing(pos, [](std::string::const_iterator& cursor) {
        cursor += 3;
        return true;
    }));
    EXPECT_EQ(pos - text.begin(), 4);
}

TEST(AllOrNothing, FailingStepsGiveBackWhatTheyConsumed) {
    std::string::const_iterator pos = text.begin() + 1;
    std::string::const_iterator reached = pos;
    EXPECT_FALSE(all_or_nothing(pos, [&reached](std::string::const_iterator& cursor) {
        cursor += 4;
        reached = cursor;
        return false;
    }));
    EXPECT_EQ(reached - text.begin(), 5);
    EXPECT_EQ(pos - text.begin(), 1);
}

TEST(AllOrNothing, StepsStartFromThePosition) {
    const char* pos = text.c_str() + 2;
    const char* seen = nullptr;
    EXPECT_TRUE(all_or_nothing(pos, [&seen](const char*& cursor) {
        seen = cursor;
        return true;
    }));
    EXPECT_EQ(seen, text.c_str() + 2);
    EXPECT_EQ(pos, text.c_str() + 2);
}

} // namespace
