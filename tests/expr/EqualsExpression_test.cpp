// SPDX-License-Identifier: MIT
#include "expr/EqualsExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

using QuorelScript::EqualsExpression;
using QuorelScript::Path;

namespace {

bool equal(const char* left, const char* right, const QuorelScript::Bindings& variables) {
    return EqualsExpression<Path>(literal(left), literal(right)).evaluate(variables);
}

TEST(EqualsExpression, Prints) {
    EXPECT_EQ("equals($file,/a/b)", printed(EqualsExpression<Path>(literal("$file"), literal("/a/b"))));
}

TEST(EqualsExpression, ComparesWholeTexts) {
    EXPECT_TRUE(equal("/a/b", "/a/b", bindings({})));
    EXPECT_FALSE(equal("/a", "/a/", bindings({})));
    EXPECT_FALSE(equal("/a/b", "/A/B", bindings({})));
    EXPECT_FALSE(equal("/a/./b", "/a/b", bindings({})));
}

TEST(EqualsExpression, LiteralWithoutVariablesIsNeverNormalized) {
    EXPECT_FALSE(equal("/a//b", "/a/b", bindings({})));
    EXPECT_FALSE(equal("/a//b", "/a/b", bindings({{"d", "/a/"}})));
}

TEST(EqualsExpression, SubstitutedTextIsNormalized) {
    EXPECT_TRUE(equal("$d/b", "/a/b", bindings({{"d", "/a/"}})));
}

TEST(EqualsExpression, EvaluatesTheRightOperandFirst) {
    Probe probe;
    EqualsExpression<Path> expression(fakePath(probe, "L", "/x"), fakePath(probe, "R", "/x"));
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ((std::vector<std::string>{"evaluate R", "evaluate L"}), probe.calls);
}

TEST(EqualsExpression, HasVariablesFromEitherSide) {
    EXPECT_TRUE(EqualsExpression<Path>(literal("$a"), literal("/b")).hasVariables());
    EXPECT_TRUE(EqualsExpression<Path>(literal("/a"), literal("$b")).hasVariables());
    EXPECT_FALSE(EqualsExpression<Path>(literal("/a"), literal("/b")).hasVariables());
}

} // namespace
