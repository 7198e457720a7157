// SPDX-License-Identifier: MIT
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::MultiAndExpression;
using QuorelScript::MultiOrExpression;
using Calls = std::vector<std::string>;

namespace {

TEST(MultiAndExpression, EmptyIsTrueAndPrintsAsAnOr) {
    MultiAndExpression expression;
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ("or([])", printed(expression));
}

TEST(MultiAndExpression, PrintsExactlyLikeAnNaryOr) {
    Probe probe;
    MultiAndExpression conjunction;
    conjunction.append(fakeCondition(probe, "A", true));
    conjunction.append(fakeCondition(probe, "B", true));
    MultiOrExpression disjunction;
    disjunction.append(fakeCondition(probe, "A", true));
    disjunction.append(fakeCondition(probe, "B", true));
    EXPECT_EQ("or([A,B])", printed(conjunction));
    EXPECT_EQ(printed(disjunction), printed(conjunction));
}

TEST(MultiAndExpression, TrueWhenNoOperandIsFalse) {
    Probe probe;
    MultiAndExpression expression;
    expression.append(fakeCondition(probe, "A", true));
    expression.append(fakeCondition(probe, "B", true));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate A", "evaluate B"}), probe.calls);
}

TEST(MultiAndExpression, StopsAtTheFirstFalseOperand) {
    Probe probe;
    MultiAndExpression expression;
    expression.append(fakeCondition(probe, "A", true));
    expression.append(fakeCondition(probe, "B", false));
    expression.append(fakeCondition(probe, "C", false));
    EXPECT_FALSE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate A", "evaluate B"}), probe.calls);
}

} // namespace
