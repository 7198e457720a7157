// SPDX-License-Identifier: MIT
#include "expr/BooleanLiteral.hpp"

#include "ExprTesting.hpp"

#include <gtest/gtest.h>

#include <memory>

using QuorelScript::BooleanLiteral;
using QuorelScript::Expression;

namespace {

TEST(BooleanLiteral, Prints) {
    EXPECT_EQ("true", printed(BooleanLiteral(true)));
    EXPECT_EQ("false", printed(BooleanLiteral(false)));
}

TEST(BooleanLiteral, EvaluatesToItsValue) {
    EXPECT_TRUE(BooleanLiteral(true).evaluate(bindings({})));
    EXPECT_FALSE(BooleanLiteral(false).evaluate(bindings({{"file", "/a"}})));
}

TEST(BooleanLiteral, HasNoVariablesAndSubstitutionLeavesItUnchanged) {
    for (bool value : {true, false}) {
        BooleanLiteral literal(value);
        EXPECT_FALSE(literal.hasVariables());
        literal.substituteVariables(bindings({{"true", "/x"}, {"false", "/y"}}));
        EXPECT_EQ(value, literal.value());
        EXPECT_EQ(value ? "true" : "false", printed(literal));
        EXPECT_FALSE(literal.hasVariables());
    }
}

TEST(BooleanLiteral, CloneHasTheSameValue) {
    for (bool value : {true, false}) {
        std::unique_ptr<Expression<bool>> copy(BooleanLiteral(value).clone());
        EXPECT_EQ(value, copy->evaluate(bindings({})));
        EXPECT_EQ(value ? "true" : "false", printed(*copy));
    }
}

} // namespace
