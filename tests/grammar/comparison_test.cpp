// SPDX-License-Identifier: MIT
// The path tests: in, not in, ==, !=, exists.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(Comparison, Equals) {
    EXPECT_EQ(excluding("equals($file,/a/b)"), excludeIf("$file == /a/b"));
    EXPECT_EQ(excluding("equals(a,b)"), excludeIf("a==b"));
}

TEST(Comparison, NotEqualsIsTheNegatedEquality) {
    EXPECT_EQ(excluding("not(equals(a,b))"), excludeIf("a != b"));
    EXPECT_EQ(excluding("not(equals(a,b))"), excludeIf("a!=b"));
}

TEST(Comparison, Exists) {
    EXPECT_EQ(excluding("exists(/tmp)"), excludeIf("/tmp exists"));
}

// "exists" needs no blank before it and no boundary after it.
TEST(Comparison, ExistsHasNoBoundary) {
    EXPECT_EQ(excluding("exists(a)"), excludeIf("\"a\"exists"));
    EXPECT_EQ(syntaxError, excludeIf("a existsx"));
}

TEST(Comparison, In) {
    EXPECT_EQ(excluding("in($file,[/usr/include])"), excludeIf("$file in [/usr/include]"));
}

TEST(Comparison, InNeedsABoundary) {
    EXPECT_EQ(excluding("in(x,[a])"), excludeIf("x in\ta"));
    EXPECT_EQ(syntaxError, excludeIf("x inside a"));
}

TEST(Comparison, NotInIsTheNegatedMembership) {
    EXPECT_EQ(excluding("not(in(x,[a,b]))"), excludeIf("x not in [a, b]"));
}

// "not in" is one literal with exactly one space in it.
TEST(Comparison, NotInWithTwoSpacesIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x not  in [a]"));
    EXPECT_EQ(syntaxError, excludeIf("x not\tin [a]"));
}

TEST(Comparison, OneComparisonPerAtom) {
    EXPECT_EQ(syntaxError, excludeIf("a exists exists"));
    EXPECT_EQ(syntaxError, excludeIf("a == b == c"));
}

TEST(Comparison, NothingToCompareIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("a"));
    EXPECT_EQ(syntaxError, excludeIf("a =="));
}

// A word that is no literal can be the path of a comparison, keywords included.
TEST(Comparison, KeywordSpellingAPathIsAPath) {
    EXPECT_EQ(excluding("exists(not)"), excludeIf("not exists"));
    EXPECT_EQ(excluding("equals(and,or)"), excludeIf("and == or"));
}

TEST(Comparison, ComparisonOfQuotedPaths) {
    EXPECT_EQ(excluding("equals(a b,c d)"), excludeIf("\"a b\" == \"c d\""));
}
