// SPDX-License-Identifier: MIT
#include "expr/ExistsExpression.hpp"

#include "ExprTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

using QuorelScript::ExistsExpression;

namespace {

ExistsExpression existsOf(const std::string& text) {
    return ExistsExpression(literal(text.c_str()));
}

TEST(ExistsExpression, Prints) {
    EXPECT_EQ("exists($dir/x.h)", printed(existsOf("$dir/x.h")));
}

TEST(ExistsExpression, AsksTheFileSystem) {
    TempTree tree;
    tree.file("sub/file.h");
    EXPECT_TRUE(existsOf(tree.path("sub/file.h")).evaluate(bindings({})));
    EXPECT_TRUE(existsOf(tree.path("sub")).evaluate(bindings({})));
    EXPECT_FALSE(existsOf(tree.path("sub/other.h")).evaluate(bindings({})));
}

TEST(ExistsExpression, SubstitutesVariablesFirst) {
    TempTree tree;
    tree.file("file.h");
    const QuorelScript::Bindings variables = bindings({{"root", tree.path().c_str()}});
    EXPECT_TRUE(existsOf("$root/file.h").evaluate(variables));
    EXPECT_FALSE(existsOf("$unknown/file.h").evaluate(variables));
}

TEST(ExistsExpression, AsksAnewAtEveryEvaluation) {
    TempTree tree;
    ExistsExpression expression = existsOf(tree.path("late.h"));
    EXPECT_FALSE(expression.evaluate(bindings({})));
    tree.file("late.h");
    EXPECT_TRUE(expression.evaluate(bindings({})));
}

TEST(ExistsExpression, HasVariablesOfItsOperand) {
    EXPECT_FALSE(existsOf("/tmp").hasVariables());
    EXPECT_TRUE(existsOf("$tmp").hasVariables());
}

} // namespace
