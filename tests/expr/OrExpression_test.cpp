// SPDX-License-Identifier: MIT
#include "expr/BooleanLiteral.hpp"
#include "expr/OrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::BooleanLiteral;
using QuorelScript::OrExpression;
using Calls = std::vector<std::string>;

namespace {

TEST(OrExpression, Prints) {
    EXPECT_EQ("or(false,true)", printed(OrExpression(new BooleanLiteral(false), new BooleanLiteral(true))));
}

TEST(OrExpression, TruthTable) {
    for (bool left : {false, true})
        for (bool right : {false, true})
            EXPECT_EQ(left || right,
                      OrExpression(new BooleanLiteral(left), new BooleanLiteral(right)).evaluate(bindings({})));
}

TEST(OrExpression, TrueLeftOperandLeavesTheRightOneUnevaluated) {
    Probe probe;
    OrExpression expression(fakeCondition(probe, "L", true), fakeCondition(probe, "R", false));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ(Calls{"evaluate L"}, probe.calls);
}

TEST(OrExpression, FalseLeftOperandLetsTheRightOneDecide) {
    Probe probe;
    OrExpression expression(fakeCondition(probe, "L", false), fakeCondition(probe, "R", true));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate L", "evaluate R"}), probe.calls);
}

} // namespace
