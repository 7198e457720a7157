// SPDX-License-Identifier: MIT
#include "expr/MultiOrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::MultiOrExpression;
using Calls = std::vector<std::string>;

namespace {

TEST(MultiOrExpression, EmptyIsFalseAndPrintsAsAnEmptyOr) {
    MultiOrExpression expression;
    EXPECT_FALSE(expression.evaluate(bindings({})));
    EXPECT_EQ("or([])", printed(expression));
}

TEST(MultiOrExpression, PrintsItsOperandsInOrder) {
    Probe probe;
    MultiOrExpression expression;
    expression.append(fakeCondition(probe, "A", false));
    expression.append(fakeCondition(probe, "B", false));
    expression.append(fakeCondition(probe, "C", false));
    EXPECT_EQ("or([A,B,C])", printed(expression));
}

TEST(MultiOrExpression, FalseWhenNoOperandIsTrue) {
    Probe probe;
    MultiOrExpression expression;
    expression.append(fakeCondition(probe, "A", false));
    expression.append(fakeCondition(probe, "B", false));
    EXPECT_FALSE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate A", "evaluate B"}), probe.calls);
}

TEST(MultiOrExpression, StopsAtTheFirstTrueOperand) {
    Probe probe;
    MultiOrExpression expression;
    expression.append(fakeCondition(probe, "A", false));
    expression.append(fakeCondition(probe, "B", true));
    expression.append(fakeCondition(probe, "C", true));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate A", "evaluate B"}), probe.calls);
}

} // namespace
