// SPDX-License-Identifier: MIT
// Blanks, continuation lines and comments.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(Blank, SpacesAndTabsSeparateWords) {
    EXPECT_EQ(excluding("exists(a)"), printed(" \texclude \t if\t a \t exists \t\n"));
}

TEST(Blank, OtherWhiteSpaceIsNoBlank) {
    EXPECT_EQ(syntaxError, printed("exclude\vif a exists\n"));
    EXPECT_EQ(syntaxError, printed("exclude\fif a exists\n"));
}

TEST(Blank, ThreeDotsAndALineEndContinueTheRule) {
    EXPECT_EQ(excluding("and(exists(a),exists(b))"), printed("exclude if a exists and ...\nb exists\n"));
}

TEST(Blank, ContinuationMayHaveBlanksBeforeTheLineEnd) {
    EXPECT_EQ(excluding("exists(a)"), printed("exclude ... \t\r\nif a exists\n"));
}

TEST(Blank, ContinuationMayEndInAComment) {
    EXPECT_EQ(excluding("exists(a)"), printed("exclude ... % why\nif a exists\n"));
}

TEST(Blank, DotsFollowedByOtherTextAreNoContinuation) {
    EXPECT_EQ(syntaxError, printed("exclude ... x\nif a exists\n"));
}

TEST(Blank, CommentEndingInThreeDotsContinuesOntoTheNextLine) {
    // The second line would be a syntax error on its own.
    EXPECT_EQ(excluding("true"), printed("% a comment ...\nthat goes on\nexclude if true\n"));
}

TEST(Blank, CommentWithDotsInsideDoesNotContinue) {
    EXPECT_EQ(syntaxError, printed("% a ... comment\nthat goes on\n"));
}

TEST(Blank, CommentMayEndTheText) {
    EXPECT_EQ(excluding("true"), printed("exclude if true\n% last"));
}

TEST(Blank, TrailingCommentEndsAStatement) {
    EXPECT_EQ(excluding("exists(a)"), printed("exclude if a exists% note\n"));
}

TEST(Blank, HashIsNoComment) {
    EXPECT_EQ(syntaxError, printed("# not a comment\n"));
}

// Three dots and a comment inside a comment continue it: the inner comment
// runs to its line end, then the outer one goes on over the next line.
TEST(Blank, EveryContinuedCommentInsideACommentTakesOneMoreLine) {
    EXPECT_EQ(excluding("exists(c)"), printed("% a ...% b ...%\nnot a rule\nnor this\nexclude if c exists\n"));
    EXPECT_EQ(syntaxError, printed("% a ...% b ...%\nnot a rule\nexclude if c exists\nbut this\n"));
}

TEST(Blank, ContinuedCommentsInsideACommentCountEveryLine) {
    QuorelScript::ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "% ... ...% ...\n x\n ...%\r\n\nexclude if a exists\n"));
    EXPECT_EQ(std::vector<std::string>{"<anonymous script>, line 5: \nexclude if a exists"},
              ruleNames<QuorelScript::ExcludeRule>(impl));
}

TEST(Blank, TheEndOfTheTextEndsEveryContinuedComment) {
    EXPECT_EQ(excluding("exists(a)"), printed("exclude if a exists % x ...%...% y ...%"));
}

TEST(Blank, ContinuedCommentInAContinuation) {
    EXPECT_EQ(excluding("and(exists(a),exists(b))"), printed("exclude if a exists and ...% x ...%\n\n b exists\n"));
}
