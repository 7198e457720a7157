// SPDX-License-Identifier: MIT
#include "SyntaxHint.hpp"

#include "SmallStack.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using qxqr::syntaxHint;

namespace {

std::string reportFor(const std::string& line) {
    return "Syntax error in quorel rules script (s.rules) at line 1:\n" + line + "\n\n";
}

TEST(SyntaxHint, PitfallOfAShortLineIsHinted) {
    EXPECT_EQ("hint: a path that holds blanks is written in double quotes\n",
              syntaxHint(reportFor("exclude if $file == a b")));
}

// A path with a blank is hinted wherever a path is read, not only on the
// right of == and !=.
TEST(SyntaxHint, BlankInAPathIsHintedWhereverAPathIsRead) {
    const std::vector<std::string> lines = {
        "exclude if my file exists",       "exclude if $file in [my dir/]", "exclude if $file in [/a, my dir/]",
        "exclude if $file not in my dir/", "exclude if my file == $file",   "prune if not my file exists and a exists",
        "include [my file] if true",       "include [a, my file] if true",  "include my file if true"};
    for (const std::string& line : lines)
        EXPECT_EQ("hint: a path that holds blanks is written in double quotes\n", syntaxHint(reportFor(line))) << line;
}

// A tab in a quoted path, wherever a path is read; a tab outside quotes is
// a blank like any other, and a tab in a comment is no part of a path.
TEST(SyntaxHint, TabInAQuotedPathIsHinted) {
    const std::vector<std::string> lines = {"exclude if $name == \"my\tfile\"", "exclude if \"a\tb\" exists",
                                            "exclude if $file in [\"/a b/\", \"/c\td/\"]",
                                            "include [\"a\tb\"] if\ttrue", "exclude\tif \"a\tb\" == $file % \"x\ty\""};
    for (const std::string& line : lines)
        EXPECT_EQ("hint: a quoted path may hold spaces but not a tab, which no path can hold\n",
                  syntaxHint(reportFor(line)))
            << line;
}

bool parses(const std::string& line) {
    QuorelScript::Parser parser;
    const std::string text = line + "\n";
    return std::unique_ptr<QuorelScript::Rules>(parser.parse(text.c_str())) != nullptr;
}

// For each pitfall, a line that fails and looks like it, but that mending
// as its hint says would not make parse: it gets no hint.
TEST(SyntaxHint, LineThatMendingWouldNotFixGetsNoHint) {
    const std::vector<std::string> lines = {
        "exclude if $file in",                 // a keyword at the end, with more missing
        "include a, b if c exist",             // a bare include list, and a misspelt keyword
        "exclude if $file not  in [/a",        // 'not  in', and a list never closed
        "exclude if $file in [/a ] exists",    // a blank before ']', and a test after the list
        "EXCLUDE IF $file exist",              // upper-case keywords, and a misspelt one
        "prune if not not $file exist",        // 'not not', and a misspelt keyword
        "exclude if true == $name and",        // a literal on the left, and an 'and' without a right side
        "exclude if \"\" exist",               // an empty quoted path, and a misspelt keyword
        "exclude if $name == my file-x",       // a blank in a path, and a character no path holds
        "exclude if my file exist",            // a blank in a path, and a misspelt keyword
        "exclude if $file in [my dir/] exist", // a blank in a path, and a test after the list
        "include [my file] iff true",          // a blank in a path, and a misspelt keyword
        "exclude if a exists orr b exists",    // a misspelt keyword between two tests
        "exclude iff a exists",                // a misspelt keyword before a test
        "exclude if $file == /opt/a-b exist",  // a character no path holds, and a misspelt keyword
        "exclude if \"a\tb\" exist"};          // a tab in a quoted path, and a misspelt keyword
    for (const std::string& line : lines) {
        ASSERT_FALSE(parses(line)) << line;
        EXPECT_EQ("", syntaxHint(reportFor(line))) << line;
    }
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
