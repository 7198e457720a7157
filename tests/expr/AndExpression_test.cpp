// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::AndExpression;
using QuorelScript::BooleanLiteral;
using Calls = std::vector<std::string>;

namespace {

TEST(AndExpression, Prints) {
    EXPECT_EQ("and(true,false)", printed(AndExpression(new BooleanLiteral(true), new BooleanLiteral(false))));
}

TEST(AndExpression, TruthTable) {
    for (bool left : {false, true})
        for (bool right : {false, true})
            EXPECT_EQ(left && right,
                      AndExpression(new BooleanLiteral(left), new BooleanLiteral(right)).evaluate(bindings({})));
}

TEST(AndExpression, FalseLeftOperandLeavesTheRightOneUnevaluated) {
    Probe probe;
    AndExpression expression(fakeCondition(probe, "L", false), fakeCondition(probe, "R", true));
    EXPECT_FALSE(expression.evaluate(bindings({})));
    EXPECT_EQ(Calls{"evaluate L"}, probe.calls);
}

TEST(AndExpression, TrueLeftOperandLetsTheRightOneDecide) {
    Probe probe;
    AndExpression expression(fakeCondition(probe, "L", true), fakeCondition(probe, "R", false));
    EXPECT_FALSE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate L", "evaluate R"}), probe.calls);
}

} // namespace
