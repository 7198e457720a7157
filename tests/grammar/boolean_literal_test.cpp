// SPDX-License-Identifier: MIT
// The literals true and false, and keywords at the very end of the text.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(BooleanLiteral, TrueAndFalse) {
    EXPECT_EQ(excluding("true"), excludeIf("true"));
    EXPECT_EQ(excluding("false"), excludeIf("false"));
}

// The keyword boundary is a look-ahead that needs one more character, so a
// keyword that ends the text is not recognised.
TEST(BooleanLiteral, KeywordEndingTheTextIsRejected) {
    EXPECT_EQ(syntaxError, printed("exclude if true"));
    EXPECT_EQ(excluding("true"), printed("exclude if true\n"));
    EXPECT_EQ(syntaxError, printed("exclude if false"));
}

// "exists" has no boundary test, so it may end the text.
TEST(BooleanLiteral, ExistsMayEndTheText) {
    EXPECT_EQ(excluding("exists(a)"), printed("exclude if a exists"));
}

TEST(BooleanLiteral, OtherKeywordsEndingTheTextAreRejected) {
    for (const char* script :
         {"exclude if a in", "exclude if a not in", "exclude if not", "exclude if", "exclude unless"})
        EXPECT_EQ(syntaxError, printed(script)) << script;
}

TEST(BooleanLiteral, LiteralNeedsABoundary) {
    // "truex" is no literal, and no comparison either.
    EXPECT_EQ(syntaxError, excludeIf("truex"));
    EXPECT_EQ(excluding("exists(truex)"), excludeIf("truex exists"));
}

// A literal wins over a comparison whose path spells it: once the literal
// has matched, the rest of the line fits nothing.
TEST(BooleanLiteral, LiteralIsNeverTheLeftSideOfAComparison) {
    EXPECT_EQ(syntaxError, excludeIf("true == x"));
    EXPECT_EQ(syntaxError, excludeIf("false exists"));
}

TEST(BooleanLiteral, LiteralMayBeTheRightSideOfAComparison) {
    EXPECT_EQ(excluding("equals(x,true)"), excludeIf("x == true"));
}

TEST(BooleanLiteral, KeywordsAreCaseSensitive) {
    EXPECT_EQ(syntaxError, excludeIf("TRUE"));
    EXPECT_EQ(syntaxError, printed("EXCLUDE if true\n"));
    EXPECT_EQ(syntaxError, printed("exclude IF true\n"));
    EXPECT_EQ(syntaxError, printed("Prune if true\n"));
}
