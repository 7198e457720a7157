// SPDX-License-Identifier: MIT
#include "ExampleScript.hpp"
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using GrammarTesting::printed;
using GrammarTesting::syntaxError;

TEST(Script, EmptyTextMatchesAndYieldsNoRules) {
    EXPECT_EQ("", printed(""));
}

TEST(Script, BlankLinesOnlyMatchAndYieldNoRules) {
    EXPECT_EQ("", printed("\n\r\n  \n\t\n   "));
}

TEST(Script, CommentLinesOnlyMatchAndYieldNoRules) {
    EXPECT_EQ("", printed("% one\n  % two\r\n\t%three"));
}

TEST(Script, LineOfBlanksAndACommentIsACommentLine) {
    EXPECT_EQ("\texclude if true\n\n", printed(" \t % only a comment\nexclude if true\n"));
}

TEST(Script, ExampleScriptParsesCompletely) {
    const char* script = exampleScript;
    EXPECT_EQ("\texclude if in($vantor/toolbox/local,[$cwd,/tmp])\n"
              "\texclude if not(equals(x,y))\n"
              "\n"
              "\tprune if not(and(exists(dir),not(equals(name,x.c))))\n"
              "\n"
              "\tinclude [a/b.c,lib/*.so] if or(equals(arch,ia32lx),true)\n"
              "\tinclude [$dir/*.vrkilx] if not(false)\n"
              "\n",
              printed(script));
}

TEST(Script, RulesOfEachKindKeepScriptOrder) {
    EXPECT_EQ("\texclude if exists(a)\n\texclude if exists(c)\n\n\tprune if exists(b)\n\n",
              printed("exclude if a exists\nprune if b exists\nexclude if c exists\n"));
}

TEST(Script, CarriageReturnLineFeedLineEndsAreAccepted) {
    EXPECT_EQ("\texclude if true\n\n\tprune if false\n\n", printed("exclude if true\r\nprune if false\r\n"));
}

TEST(Script, AnUnrecognisedLineIsASyntaxError) {
    EXPECT_EQ(syntaxError, printed("exclude if true\nthis is no rule\n"));
}
