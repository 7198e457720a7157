// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using pelor::ch;
using pelor::char_class;
using pelor::exact_char;
using pelor::not_char_predicate;

TEST(CharClass, MatchesOneByteForWhichThePredicateHolds) {
    EXPECT_EQ(scan(char_class<pelor::alpha>(), "ab"), matched(1));
    EXPECT_EQ(scan(char_class<pelor::alpha>(), "1b"), failed());
}

TEST(CharClass, FailsAtTheEndWhateverThePredicate) {
    const char_class<not_char_predicate<exact_char>> anythingButX{not_char_predicate<exact_char>('x')};
    EXPECT_EQ(scan(anythingButX, "a"), matched(1));
    EXPECT_EQ(scan(anythingButX, "a", 1), failed());
    EXPECT_EQ(scan(anythingButX, ""), failed());
    EXPECT_EQ(scan(char_class<not_char_predicate<pelor::word_char>>(), ""), failed());
}

TEST(CharClass, NeverReadsTheByteAtTheEnd) {
    const char text[] = "a";
    const char* pos = text;
    EXPECT_FALSE(ch('a').match(pos, text));
    EXPECT_EQ(pos, text);
}

TEST(CharClass, AcceptsAnyPredicateObject) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const char_class<decltype(isDigit)> digit(isDigit);
    EXPECT_EQ(scan(digit, "7x"), matched(1));
    EXPECT_EQ(scan(digit, "x7"), failed());
}

TEST(CharClass, ChMatchesExactlyOneGivenByte) {
    EXPECT_TRUE((std::is_same<decltype(ch('a')), char_class<exact_char>>::value));
    EXPECT_EQ(scan(ch('\n'), "\n\n"), matched(1));
    EXPECT_EQ(scan(ch('a'), "A"), failed());
}

} // namespace
