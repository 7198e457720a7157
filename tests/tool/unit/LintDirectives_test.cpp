// SPDX-License-Identifier: MIT
#include "LintDirectives.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

using qxqr::ScriptDirectives;

namespace {

TEST(LintDirectives, CommentBeforeTheRuleTurnsChecksOff) {
    const std::string text = "% qxqr-lint: disable=prefix-surprise,fixed-exists\nexclude if a exists\n";
    const ScriptDirectives directives(text);
    EXPECT_EQ((std::set<std::string>{"fixed-exists", "prefix-surprise"}), directives.disabledBefore(2));
    EXPECT_EQ(std::set<std::string>{}, directives.disabledBefore(1)) << "no line before the first";
    EXPECT_EQ(std::set<std::string>{}, directives.disabledBefore(3)) << "a rule line is no directive";
    EXPECT_EQ(std::set<std::string>{}, directives.disabledBefore(9)) << "past the end";
}

// A comment line of a hundred thousand characters is no directive, and
// reading it takes no stack for every character.
TEST(LintDirectives, VeryLongCommentIsNoDirective) {
    const std::string text = "% qxqr-lint: disable=" + std::string(100000, 'a') + "\nexclude if a exists\n";
    std::set<std::string> disabled = {"not asked"};
    SmallStack::run([&] { disabled = ScriptDirectives(text).disabledBefore(2); });
    EXPECT_EQ(std::set<std::string>{}, disabled);
}

} // namespace
