// SPDX-License-Identifier: MIT
// Lists of paths after "in" and "include".
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(PathList, BracketedList) {
    EXPECT_EQ(excluding("in(x,[a,b,c])"), excludeIf("x in [a,b , c]"));
}

TEST(PathList, BareSinglePath) {
    EXPECT_EQ(excluding("in(x,[a])"), excludeIf("x in a"));
}

TEST(PathList, BareListAtTheEndOfTheCondition) {
    EXPECT_EQ(excluding("in(x,[a,b])"), excludeIf("x in a, b"));
}

TEST(PathList, BlanksAroundItemsInsideBrackets) {
    EXPECT_EQ(excluding("in(x,[a,b])"), excludeIf("x in [ a, b ]"));
    EXPECT_EQ(excluding("in(x,[a])"), excludeIf("x in [ a]"));
}

// A blank before ']' is swallowed only by an item that follows a comma.
TEST(PathList, BlankBeforeClosingBracketAfterTheFirstItemIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x in [a ]"));
}

TEST(PathList, EmptyListIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x in []"));
}

TEST(PathList, ListMayBeContinuedOverLines) {
    EXPECT_EQ(excluding("in(x,[a,b])"), excludeIf("x in [a, ...\n b]"));
}

// An item after a comma swallows the blanks that follow it, so the boundary
// before "and" sees the last item's letter.
TEST(PathList, BareListOfTwoBeforeAndIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x in a, b and y exists"));
}

TEST(PathList, BracketedListOrSinglePathBeforeAndIsAccepted) {
    EXPECT_EQ(excluding("and(in(x,[a,b]),exists(y))"), excludeIf("x in [a, b] and y exists"));
    EXPECT_EQ(excluding("and(in(x,[a]),exists(y))"), excludeIf("x in a and y exists"));
}

TEST(PathList, QuotedItems) {
    EXPECT_EQ(excluding("in(x,[a b,c])"), excludeIf("x in [\"a b\", c]"));
}
