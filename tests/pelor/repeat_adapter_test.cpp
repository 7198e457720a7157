// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using pelor::ch;
using pelor::lit;

TEST(RepeatAdapter, ZeroOrMoreAlwaysSucceeds) {
    EXPECT_EQ(scan(pelor::zero_or_more(ch('a')), "aaab"), matched(3));
    EXPECT_EQ(scan(pelor::zero_or_more(ch('a')), "bbb"), matched(0));
    EXPECT_EQ(scan(pelor::zero_or_more(ch('a')), ""), matched(0));
}

TEST(RepeatAdapter, OneOrMoreWithoutAMatchFailsUnmoved) {
    EXPECT_EQ(scan(pelor::one_or_more(ch('a')), "aab"), matched(2));
    EXPECT_EQ(scan(pelor::one_or_more(ch('a')), "bbb"), failed());
    EXPECT_EQ(scanWithin(pelor::one_or_more(ch('a')), "aa", 1, 1), failed());
}

TEST(RepeatAdapter, OptionalStopsAfterOneMatch) {
    EXPECT_EQ(scan(pelor::optional(ch('a')), "aaa"), matched(1));
    EXPECT_EQ(scan(pelor::optional(ch('a')), "b"), matched(0));
}

TEST(RepeatAdapter, BoundedRepetitionHonoursBothBounds) {
    const auto twoToThree = pelor::repeat<2, 3>(ch('a'));
    EXPECT_EQ(scan(twoToThree, "ab"), failed());
    EXPECT_EQ(scan(twoToThree, "aab"), matched(2));
    EXPECT_EQ(scan(twoToThree, "aaaaa"), matched(3));
}

TEST(RepeatAdapter, IsGreedyAndNeverGivesBack) {
    EXPECT_EQ(scan(pelor::zero_or_more(ch('a')) >> ch('a'), "aaa"), failed());
}

TEST(RepeatAdapter, AFailedIterationConsumesNothing) {
    EXPECT_EQ(scan(pelor::zero_or_more(lit("ab")), "ababa"), matched(4));
    EXPECT_EQ(scan(pelor::repeat<3, -1>(lit("ab")), "ababa"), failed());
}

TEST(RepeatAdapter, RunsActionsOncePerIteration) {
    int calls = 0;
    EXPECT_EQ(scan(pelor::one_or_more(ch('a')[Counter(calls)]), "aaab"), matched(3));
    EXPECT_EQ(calls, 3);
}

TEST(RepeatAdapter, ShorthandsFixTheBounds) {
    using pelor::repeat_adapter;
    using Char = pelor::char_class<pelor::exact_char>;
    EXPECT_TRUE((std::is_same<decltype(pelor::zero_or_more(ch('a'))), repeat_adapter<Char, 0, -1>>::value));
    EXPECT_TRUE((std::is_same<decltype(pelor::one_or_more(ch('a'))), repeat_adapter<Char, 1, -1>>::value));
    EXPECT_TRUE((std::is_same<decltype(pelor::optional(ch('a'))), repeat_adapter<Char, 0, 1>>::value));
}

} // namespace
