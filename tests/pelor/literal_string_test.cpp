// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using pelor::lit;
using pelor::literal_string;

TEST(LiteralString, MatchesItsTextAndAdvancesPastIt) {
    EXPECT_EQ(scan(lit("and"), "and more"), matched(3));
    EXPECT_EQ(scan(lit("and"), "x and", 2), matched(3));
}

TEST(LiteralString, EmptyMatchesEverywhereConsumingNothing) {
    const literal_string empty("");
    EXPECT_EQ(scan(empty, "abc"), matched(0));
    EXPECT_EQ(scan(empty, "abc", 3), matched(0));
    EXPECT_EQ(scan(empty, ""), matched(0));
}

// The input ends just before the 'd' that would complete the literal; the
// 'd' is still in memory, so only heeding the end makes the match fail.
TEST(LiteralString, LongerThanTheRemainingInputFails) {
    EXPECT_EQ(scanWithin(lit("and"), "and", 0, 2), failed());
    EXPECT_EQ(scanWithin(lit("and"), "beand", 2, 4), failed());
    EXPECT_EQ(scan(lit("and"), "an"), failed());
}

TEST(LiteralString, FailsAtTheEnd) {
    EXPECT_EQ(scanWithin(lit("a"), "aa", 1, 1), failed());
    EXPECT_EQ(scan(lit("a"), "a", 1), failed());
}

TEST(LiteralString, IsCaseSensitive) {
    EXPECT_EQ(scan(lit("and"), "And"), failed());
    EXPECT_EQ(scan(lit("And"), "and"), failed());
}

TEST(LiteralString, FailsUnmovedOnALateMismatch) {
    EXPECT_EQ(scan(lit("andx"), "andy"), failed());
}

TEST(LiteralString, LooksNeitherAroundNorBeyondItsText) {
    EXPECT_EQ(scan(lit("and"), "android"), matched(3));
    EXPECT_EQ(scan(lit("and"), " and"), failed());
}

TEST(LiteralString, ComparesEveryByteIncludingNul) {
    const std::string withNul("a\0b", 3);
    EXPECT_EQ(scan(literal_string(withNul), std::string("a\0b!", 4)), matched(3));
    EXPECT_EQ(scan(literal_string(withNul), std::string("a\0c", 3)), failed());
}

TEST(LiteralString, KeepsItsOwnCopyOfTheText) {
    std::string source = "let";
    char buffer[] = "if";
    const literal_string fromString(source);
    const literal_string fromPointer(buffer);
    source = "xyz";
    buffer[0] = 'o';
    EXPECT_EQ(scan(fromString, "let"), matched(3));
    EXPECT_EQ(scan(fromPointer, "if"), matched(2));
}

TEST(LiteralString, LitMakesALiteral) {
    EXPECT_TRUE((std::is_same<decltype(lit("x")), literal_string>::value));
    EXPECT_TRUE((std::is_same<decltype(lit(std::string("x"))), literal_string>::value));
    EXPECT_EQ(scan(lit(std::string("\r\n")), "\r\n"), matched(2));
}

} // namespace
