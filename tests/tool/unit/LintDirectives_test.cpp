#include "LintDirectives.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

using qxqr::checksDisabledBefore;

namespace {

TEST(LintDirectives, CommentBeforeTheRuleTurnsChecksOff) {
    EXPECT_EQ((std::set<std::string>{"fixed-exists", "prefix-surprise"}),
              checksDisabledBefore("% qxqr-lint: disable=prefix-surprise,fixed-exists\nexclude if a exists\n", 2));
}

// A comment line of a hundred thousand characters is no directive, and
// reading it takes no stack for every character.
TEST(LintDirectives, VeryLongCommentIsNoDirective) {
    const std::string text = "% qxqr-lint: disable=" + std::string(100000, 'a') + "\nexclude if a exists\n";
    std::set<std::string> disabled = {"not asked"};
    SmallStack::run([&] { disabled = checksDisabledBefore(text, 2); });
    EXPECT_EQ(std::set<std::string>{}, disabled);
}

} // namespace
