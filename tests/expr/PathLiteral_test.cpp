// SPDX-License-Identifier: MIT
#include "expr/PathLiteral.hpp"

#include "ExprTesting.hpp"

#include <gtest/gtest.h>

#include <memory>

using QuorelScript::Expression;
using QuorelScript::Path;
using QuorelScript::PathLiteral;

namespace {

TEST(PathLiteral, PrintsItsTextAsWritten) {
    EXPECT_EQ(" /a//b/./c ", printed(*std::unique_ptr<PathLiteral>(literal(" /a//b/./c "))));
}

TEST(PathLiteral, KeepsOnlyTheGivenRange) {
    const char text[] = "\"/a/b\"";
    EXPECT_EQ("/a/b", printed(PathLiteral(text + 1, text + 5)));
}

TEST(PathLiteral, HasVariablesWhenItHoldsADollar) {
    EXPECT_TRUE(std::unique_ptr<PathLiteral>(literal("/a/$x"))->hasVariables());
    EXPECT_TRUE(std::unique_ptr<PathLiteral>(literal("$"))->hasVariables());
    EXPECT_FALSE(std::unique_ptr<PathLiteral>(literal("/a/x"))->hasVariables());
}

TEST(PathLiteral, EvaluationLeavesTheLiteralUnchanged) {
    std::unique_ptr<PathLiteral> path(literal("$d//b"));
    EXPECT_EQ("/a/b", path->evaluate(bindings({{"d", "/a"}})).text());
    EXPECT_EQ("$d//b", printed(*path));
}

TEST(PathLiteral, SubstitutionRewritesTheLiteral) {
    std::unique_ptr<PathLiteral> path(literal("$d//b/$unknown"));
    path->substituteVariables(bindings({{"d", "/a"}}));
    EXPECT_EQ("/a/b/$unknown", printed(*path));
    EXPECT_TRUE(path->hasVariables());
}

TEST(PathLiteral, CloneCopiesTheCharactersAsTheyAreWithANormalizerOfItsOwn) {
    std::unique_ptr<PathLiteral> path(literal(" /a//$x "));
    std::unique_ptr<Expression<Path>> copy(path->clone());
    const PathLiteral& copied = static_cast<const PathLiteral&>(*copy);
    EXPECT_EQ(" /a//$x ", copied.path().text());
    ASSERT_TRUE(copied.path().normalizer());
    EXPECT_NE(path->path().normalizer(), copied.path().normalizer());
    EXPECT_EQ(2, path->path().normalizer().use_count());
}

} // namespace
