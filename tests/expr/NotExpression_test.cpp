// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/NotExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::AndExpression;
using QuorelScript::BooleanLiteral;
using QuorelScript::NotExpression;

namespace {

TEST(NotExpression, NegatesItsOperand) {
    EXPECT_FALSE(NotExpression<bool>(new BooleanLiteral(true)).evaluate(bindings({})));
    EXPECT_TRUE(NotExpression<bool>(new BooleanLiteral(false)).evaluate(bindings({})));
}

TEST(NotExpression, NotOfAndPrintsAndEvaluates) {
    NotExpression<bool> expression(new AndExpression(new BooleanLiteral(true), new BooleanLiteral(false)));
    EXPECT_EQ("not(and(true,false))", printed(expression));
    EXPECT_TRUE(expression.evaluate(bindings({})));
}

TEST(NotExpression, EvaluatesItsOperandOnce) {
    Probe probe;
    NotExpression<bool> expression(fakeCondition(probe, "A", false));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ(std::vector<std::string>{"evaluate A"}, probe.calls);
}

} // namespace
