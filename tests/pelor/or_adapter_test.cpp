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

TEST(OrAdapter, FirstMatchingAlternativeWinsEvenIfShorter) {
    EXPECT_EQ(scan(lit("in") | lit("include"), "include"), matched(2));
    EXPECT_EQ(scan(lit("include") | lit("in"), "include"), matched(7));
    EXPECT_EQ(scan(lit("include") | lit("in"), "inside"), matched(2));
}

TEST(OrAdapter, SecondAlternativeStartsAgainFromTheStart) {
    EXPECT_EQ(scan((lit("ab") >> ch('x')) | lit("abc"), "abc"), matched(3));
}

TEST(OrAdapter, FailsUnmovedWhenNoAlternativeMatches) {
    EXPECT_EQ(scan((lit("ab") >> ch('x')) | (lit("a") >> ch('y')), "abc"), failed());
}

TEST(OrAdapter, SecondAlternativeIsNotTriedAfterTheFirstMatched) {
    std::vector<std::string> log;
    EXPECT_EQ(scan(ch('a') | pelor::epsilon()[Recorder(log, "second")], "a"), matched(1));
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(scan(ch('a') | pelor::epsilon()[Recorder(log, "second")], "b"), matched(0));
    EXPECT_EQ(log, (std::vector<std::string>{"second:"}));
}

TEST(OrAdapter, AtTheEndOnlyEmptyAlternativesMatch) {
    EXPECT_EQ(scanWithin(ch('a') | lit(""), "aa", 1, 1), matched(0));
    EXPECT_EQ(scanWithin(ch('a') | lit("a"), "aa", 1, 1), failed());
}

TEST(OrAdapter, LongerChoicesNestToTheLeftFirstInnermost) {
    using pelor::char_class;
    using pelor::exact_char;
    using pelor::literal_string;
    using pelor::or_adapter;
    EXPECT_TRUE((std::is_same<decltype(lit("a") | ch('b') | pelor::epsilon()),
                              or_adapter<or_adapter<literal_string, char_class<exact_char>>, pelor::epsilon>>::value));
    const auto seven = lit("1") | lit("2") | lit("3") | lit("4") | lit("5") | lit("6") | ch('7');
    using Six = or_adapter<
        or_adapter<or_adapter<or_adapter<or_adapter<literal_string, literal_string>, literal_string>, literal_string>,
                   literal_string>,
        literal_string>;
    EXPECT_TRUE((std::is_same<decltype(seven), const or_adapter<Six, char_class<exact_char>>>::value));
    EXPECT_EQ(scan(seven, "7"), matched(1));
}

} // namespace
