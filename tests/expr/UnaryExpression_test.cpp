// SPDX-License-Identifier: MIT
#include "expr/NotExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>

using QuorelScript::Expression;
using QuorelScript::NotExpression;
using Calls = std::vector<std::string>;

namespace {

TEST(UnaryExpression, CloneCopiesTheOperand) {
    Probe probe;
    NotExpression<bool> expression(fakeCondition(probe, "A", true));
    std::unique_ptr<Expression<bool>> copy(expression.clone());
    EXPECT_EQ(Calls{"clone A"}, probe.calls);
    EXPECT_EQ(2, probe.alive);
    EXPECT_EQ("not(A)", printed(*copy));
    EXPECT_FALSE(copy->evaluate(bindings({})));
}

TEST(UnaryExpression, ForwardsHasVariablesAndSubstitution) {
    Probe probe;
    NotExpression<bool> with(fakeCondition(probe, "A", true)->withVariables());
    NotExpression<bool> without(fakeCondition(probe, "B", true));
    EXPECT_TRUE(with.hasVariables());
    EXPECT_FALSE(without.hasVariables());
    with.substituteVariables(bindings({}));
    EXPECT_EQ((Calls{"hasVariables A", "hasVariables B", "substitute A"}), probe.calls);
}

TEST(UnaryExpression, DeletesItsOperand) {
    Probe probe;
    delete new NotExpression<bool>(fakeCondition(probe, "A", true));
    EXPECT_EQ(0, probe.alive);
}

TEST(UnaryExpression, ToleratesAReleasedOperand) {
    Probe probe;
    std::unique_ptr<Expression<bool>> operand;
    {
        NotExpression<bool> expression(fakeCondition(probe, "A", true));
        operand.reset(expression.releaseOperand());
    }
    EXPECT_EQ(1, probe.alive);
}

TEST(UnaryExpression, FailedCloneLeaksNothing) {
    Probe probe;
    NotExpression<bool> expression(fakeCondition(probe, "A", true)->failingToClone());
    EXPECT_THROW(expression.clone(), std::bad_alloc);
    EXPECT_EQ(1, probe.alive);
}

} // namespace
