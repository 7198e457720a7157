// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

using pelor::at;
using pelor::ch;
using pelor::lit;

const auto wordBoundary = at(pelor::char_class<pelor::not_char_predicate<pelor::word_char>>());

TEST(EpsilonAdapter, SucceedsWithoutMoving) {
    EXPECT_EQ(scan(at(lit("ab")), "abc"), matched(0));
}

TEST(EpsilonAdapter, FailsWithoutMoving) {
    EXPECT_EQ(scan(at(lit("ab")), "ax"), failed());
}

TEST(EpsilonAdapter, LetsWhatFollowsMatchTheSameText) {
    EXPECT_EQ(scan(at(ch('a')) >> ch('a'), "a"), matched(1));
}

TEST(EpsilonAdapter, WordBoundaryNeedsANonWordByte) {
    EXPECT_EQ(scan(wordBoundary, " x"), matched(0));
    EXPECT_EQ(scan(wordBoundary, "(x"), matched(0));
    EXPECT_EQ(scan(wordBoundary, "\xE9"), matched(0));
    EXPECT_EQ(scan(wordBoundary, "x"), failed());
    EXPECT_EQ(scan(wordBoundary, "_"), failed());
    EXPECT_EQ(scan(wordBoundary, "7"), failed());
}

TEST(EpsilonAdapter, WordBoundaryFailsAtTheEnd) {
    EXPECT_EQ(scan(wordBoundary, ""), failed());
    EXPECT_EQ(scan(wordBoundary, "and", 3), failed());
}

// A keyword is its literal followed by a word boundary, so a keyword that
// ends the text is not recognised there.
TEST(EpsilonAdapter, KeywordAtTheVeryEndIsNotAKeyword) {
    const auto keyword = lit("and") >> wordBoundary;
    EXPECT_EQ(scan(keyword, "and x"), matched(3));
    EXPECT_EQ(scan(keyword, "andy"), failed());
    EXPECT_EQ(scan(keyword, "and"), failed());
}

TEST(EpsilonAdapter, ActionsInsideTheLookAheadRun) {
    std::vector<std::string> log;
    EXPECT_EQ(scan(at(lit("ab")[Recorder(log, "ahead")]), "abc"), matched(0));
    EXPECT_EQ(log, (std::vector<std::string>{"ahead:ab"}));
}

TEST(EpsilonAdapter, AtMakesALookAhead) {
    EXPECT_TRUE((std::is_same<decltype(at(lit("a"))), pelor::epsilon_adapter<pelor::literal_string>>::value));
}

} // namespace
