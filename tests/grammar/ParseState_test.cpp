// SPDX-License-Identifier: MIT
#include "grammar/ParseState.hpp"

#include "expr/BooleanLiteral.hpp"
#include "expr/PathLiteral.hpp"

#include <gtest/gtest.h>

#include <memory>

using QuorelScript::BooleanLiteral;
using QuorelScript::ExcludeRule;
using QuorelScript::Expression;
using QuorelScript::ParseState;
using QuorelScript::Path;
using QuorelScript::PathLiteral;

TEST(ParseState, StartsUnnamedQuietAndBeforeTheFirstLine) {
    ParseState state(3);
    EXPECT_EQ("<anonymous script>", state.scriptName());
    EXPECT_FALSE(state.debugVerbose());
    EXPECT_EQ(0, state.lineCount());
    EXPECT_EQ(3, state.nesting().limit());
}

TEST(ParseState, ANewTextDropsTheOperandsAndStartsAtLineOne) {
    ParseState state(3);
    state.stack<Expression<bool>>().push(std::make_unique<BooleanLiteral>(true));
    const char* const a = "a";
    state.stack<Expression<Path>>().push(std::make_unique<PathLiteral>(a, a + 1));
    state.countLine();
    state.countLine();
    state.beginText();
    EXPECT_TRUE(state.stack<Expression<bool>>().empty());
    EXPECT_TRUE(state.stack<Expression<Path>>().empty());
    EXPECT_EQ(1, state.lineCount());
}

TEST(ParseState, ANewTextKeepsTheCollectedRulesAndTheSettings) {
    ParseState state(3);
    state.rules<ExcludeRule>().push(std::make_unique<ExcludeRule>(new BooleanLiteral(true)));
    state.setScriptName("s");
    state.setDebugVerbose(true);
    state.beginText();
    ASSERT_NE(nullptr, state.rules<ExcludeRule>().list());
    EXPECT_EQ(1u, state.rules<ExcludeRule>().list()->size());
    EXPECT_EQ("s", state.scriptName());
    EXPECT_TRUE(state.debugVerbose());
}
