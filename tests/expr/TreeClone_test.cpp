// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"

#include "ExprTesting.hpp"

#include <gtest/gtest.h>

#include <memory>

using namespace QuorelScript;

namespace {

const char printedTree[] = "or([not(and(exists(/nonexistent/$x),in($file,[/a,$d]))),or(equals($file,/a/b),false)])";

Expression<bool>* makeTree() {
    std::unique_ptr<MultiAndExpression> tree(new MultiAndExpression);
    tree->append(new NotExpression<bool>(new AndExpression(
        new ExistsExpression(literal("/nonexistent/$x")), new InExpression(literal("$file"), literals({"/a", "$d"})))));
    tree->append(
        new OrExpression(new EqualsExpression<Path>(literal("$file"), literal("/a/b")), new BooleanLiteral(false)));
    return tree.release();
}

TEST(TreeClone, DestroyingTheCloneLeavesTheSourceIntact) {
    std::unique_ptr<Expression<bool>> source(makeTree());
    delete source->clone();
    EXPECT_EQ(printedTree, printed(*source));
    EXPECT_TRUE(source->evaluate(bindings({{"file", "/a/b"}})));
    EXPECT_FALSE(source->evaluate(bindings({{"file", "/z"}, {"d", "/z"}})));
}

TEST(TreeClone, DestroyingTheSourceLeavesTheCloneIntact) {
    std::unique_ptr<Expression<bool>> source(makeTree());
    std::unique_ptr<Expression<bool>> copy(source->clone());
    source.reset();
    EXPECT_EQ(printedTree, printed(*copy));
    EXPECT_TRUE(copy->hasVariables());
    EXPECT_TRUE(copy->evaluate(bindings({{"file", "/a/b"}})));
    EXPECT_FALSE(copy->evaluate(bindings({{"file", "/z"}, {"d", "/z"}})));
}

TEST(TreeClone, SubstitutingIntoTheCloneLeavesTheSourceUnchanged) {
    std::unique_ptr<Expression<bool>> source(makeTree());
    std::unique_ptr<Expression<bool>> copy(source->clone());
    copy->substituteVariables(bindings({{"x", "x"}, {"file", "/f"}, {"d", "/d"}}));
    EXPECT_EQ("or([not(and(exists(/nonexistent/x),in(/f,[/a,/d]))),or(equals(/f,/a/b),false)])", printed(*copy));
    EXPECT_FALSE(copy->hasVariables());
    EXPECT_EQ(printedTree, printed(*source));
    EXPECT_TRUE(source->hasVariables());
}

} // namespace
