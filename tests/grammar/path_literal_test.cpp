// SPDX-License-Identifier: MIT
// Paths: runs of path characters, quoted paths, variables.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(PathLiteral, AllPathCharactersFormOnePath) {
    EXPECT_EQ(excluding("exists(C:\\dir/a_b.9#x/?/*.c)"), excludeIf("C:\\dir/a_b.9#x/?/*.c exists"));
}

TEST(PathLiteral, VariableReferenceNeedsALetterAfterTheDollar) {
    EXPECT_EQ(excluding("exists($vantor/x$y)"), excludeIf("$vantor/x$y exists"));
    EXPECT_EQ(syntaxError, excludeIf("$1 exists"));
    EXPECT_EQ(syntaxError, excludeIf("$_a exists"));
    EXPECT_EQ(syntaxError, excludeIf("a$ exists"));
}

TEST(PathLiteral, BracedVariablesAreNotWritable) {
    EXPECT_EQ(syntaxError, excludeIf("${file} exists"));
}

TEST(PathLiteral, CharactersOutsideTheSetEndThePath) {
    for (const char* path : {"a-b", "a+b", "~a", "a@b", "a,b", "a'b", "a;b"})
        EXPECT_EQ(syntaxError, excludeIf(std::string(path) + " exists")) << path;
}

TEST(PathLiteral, QuotedPathKeepsItsSpacesAndLosesItsQuotes) {
    EXPECT_EQ(excluding("equals(x,my  file)"), excludeIf("x == \"my  file\""));
}

TEST(PathLiteral, QuotedPathMayHoldWildcardsAndVariables) {
    EXPECT_EQ(excluding("exists( $dir/*.c )"), excludeIf("\" $dir/*.c \" exists"));
}

TEST(PathLiteral, EmptyQuotesAreRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x == \"\""));
}

TEST(PathLiteral, QuotedPathHoldsNoTab) {
    EXPECT_EQ(syntaxError, excludeIf("x == \"a\tb\""));
}

TEST(PathLiteral, UnclosedQuoteIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x == \"a b"));
    EXPECT_EQ(syntaxError, excludeIf("x == \"ab\n"));
}

TEST(PathLiteral, QuoteInsideAPathIsRejected) {
    EXPECT_EQ(syntaxError, excludeIf("x == a\"b\""));
}
