// SPDX-License-Identifier: MIT
// Operands pushed by alternatives that failed afterwards.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;
using QuorelScript::Expression;
using QuorelScript::ParserImpl;
using QuorelScript::Path;
using QuorelScript::PathList;

// In "not a exists" the comparison first reads "not" as a path and fails;
// that path stays below the nodes built afterwards, and the rule still gets
// the right condition.
TEST(StaleNodes, FailedComparisonLeavesItsPathBehind) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "exclude if not a exists\n"));
    ASSERT_EQ(1u, impl.stack<Expression<Path>>().size());
    std::ostringstream out;
    impl.stack<Expression<Path>>().top().print(out);
    EXPECT_EQ("not", out.str());
    EXPECT_TRUE(impl.stack<Expression<bool>>().empty());
    EXPECT_EQ(excluding("not(exists(a))"), printed("exclude if not a exists\n"));
}

TEST(StaleNodes, FailedBracketedListLeavesItsListBehind) {
    ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "exclude if x in [a ]\n"));
    EXPECT_EQ(1u, impl.stack<PathList>().size());
    EXPECT_EQ(1u, impl.stack<Expression<Path>>().size());
}

TEST(StaleNodes, BalancedStatementsLeaveNothing) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "exclude if a exists and (b == c or d in [e, f])\ninclude [g, h] unless true\n"));
    EXPECT_TRUE(impl.stack<Expression<bool>>().empty());
    EXPECT_TRUE(impl.stack<Expression<Path>>().empty());
    EXPECT_TRUE(impl.stack<PathList>().empty());
}

TEST(StaleNodes, ClearedWhenTheNextParseStarts) {
    ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "exclude if x in [a ]\n"));
    ASSERT_TRUE(matchAll(impl, ""));
    EXPECT_TRUE(impl.stack<PathList>().empty());
    EXPECT_TRUE(impl.stack<Expression<Path>>().empty());
}
