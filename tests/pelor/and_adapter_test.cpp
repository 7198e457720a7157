// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

using pelor::ch;
using pelor::lit;

TEST(AndAdapter, MatchesBothPartsInOrder) {
    EXPECT_EQ(scan(lit("ab") >> lit("cd"), "abcde"), matched(4));
    EXPECT_EQ(scan(lit("cd") >> lit("ab"), "abcd"), failed());
}

TEST(AndAdapter, SecondPartStartsWhereTheFirstStopped) {
    EXPECT_EQ(scan(ch('a') >> ch('a'), "aa"), matched(2));
    EXPECT_EQ(scan(ch('a') >> ch('a'), "ab"), failed());
}

TEST(AndAdapter, FailingSecondPartLeavesThePositionBeforeTheFirst) {
    EXPECT_EQ(scan(lit("ab") >> lit("cd"), "abce"), failed());
    EXPECT_EQ(scan(lit("ab") >> lit("cd"), "xxabce", 2), failed());
}

TEST(AndAdapter, FailingFirstPartSkipsTheSecond) {
    std::vector<std::string> log;
    EXPECT_EQ(scan(lit("ab") >> pelor::epsilon()[Recorder(log, "second")], "ax"), failed());
    EXPECT_TRUE(log.empty());
}

TEST(AndAdapter, MatchesEmptyPartsAtTheEnd) {
    EXPECT_EQ(scan(pelor::epsilon() >> pelor::end_of_input(), "a", 1), matched(0));
    EXPECT_EQ(scanWithin(pelor::epsilon() >> ch('a'), "aa", 1, 1), failed());
}

TEST(AndAdapter, LongerSequencesNestToTheLeft) {
    using pelor::and_adapter;
    using pelor::char_class;
    using pelor::exact_char;
    using pelor::literal_string;
    const auto sequence = lit("a") >> ch('b') >> pelor::epsilon();
    using Char = char_class<exact_char>;
    EXPECT_TRUE((
        std::is_same<decltype(sequence), const and_adapter<and_adapter<literal_string, Char>, pelor::epsilon>>::value));
    EXPECT_TRUE((std::is_same<decltype(lit("a") >> (ch('b') >> ch('c'))),
                              and_adapter<literal_string, and_adapter<Char, Char>>>::value));
}

} // namespace
