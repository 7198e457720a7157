// SPDX-License-Identifier: MIT
#include "SyntaxHint.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <string>

using qxqr::syntaxHint;

namespace {

std::string reportFor(const std::string& line) {
    return "Syntax error in quorel rules script (s.rules) at line 1:\n" + line + "\n\n";
}

TEST(SyntaxHint, PitfallOfAShortLineIsHinted) {
    EXPECT_EQ("hint: a path that holds blanks is written in double quotes\n",
              syntaxHint(reportFor("exclude if $file == a b")));
}

// The same pitfall on a line of a hundred thousand characters: no hint,
// and no crash, even on a small stack.
TEST(SyntaxHint, VeryLongLineGetsNoHint) {
    const std::string line = "exclude if $file == " + std::string(100000, 'a') + " b";
    std::string hint = "not asked";
    SmallStack::run([&] { hint = syntaxHint(reportFor(line)); });
    EXPECT_EQ("", hint);
}

TEST(SyntaxHint, VeryLongBareIncludeListGetsNoHint) {
    const std::string line = "include " + std::string(100000, 'a') + ", b if true";
    std::string hint = "not asked";
    SmallStack::run([&] { hint = syntaxHint(reportFor(line)); });
    EXPECT_EQ("", hint);
}

} // namespace
