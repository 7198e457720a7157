// SPDX-License-Identifier: MIT
#include "LintDirectives.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

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

TEST(LintDirectives, FaultsAreNamesThatAreNoCheckAndLinesOfAnotherForm) {
    const std::string text = "% qxqr-lint: disable=fixed-exists,prefix-suprise,nope\n"
                             "exclude if a exists\n"
                             "  %qxqr-lint: disable=fixed-exists reason\n"
                             "% qxqr-lint: disable=fixed-exists\n"
                             "% a comment on qxqr-lint: disable=nope\n";
    const std::vector<qxqr::DirectiveFault> faults = ScriptDirectives(text).faults({"fixed-exists", "prefix-surprise"});
    ASSERT_EQ(3u, faults.size());
    EXPECT_EQ(1, faults[0].line);
    EXPECT_EQ("the directive names no check 'prefix-suprise', which it does not turn off; did you mean "
              "prefix-surprise?",
              faults[0].message);
    EXPECT_EQ(1, faults[1].line);
    EXPECT_EQ("the directive names no check 'nope', which it does not turn off", faults[1].message);
    EXPECT_EQ(3, faults[2].line);
    EXPECT_EQ(std::set<std::string>{}, ScriptDirectives(text).disabledBefore(4)) << "a faulty line turns nothing off";
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
