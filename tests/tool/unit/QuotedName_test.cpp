// SPDX-License-Identifier: MIT
#include "QuotedName.hpp"

#include <gtest/gtest.h>

#include <string>

using qxqr::quotedName;

namespace {

// Every printable ASCII character but the blank and the single quote leaves
// a name as it is.
TEST(QuotedName, PrintableAsciiIsShownAsItIs) {
    std::string everyPlainCharacter;
    for (char c = '!'; c <= '~'; ++c)
        if (c != '\'')
            everyPlainCharacter += c;
    EXPECT_EQ(everyPlainCharacter, quotedName(everyPlainCharacter));
    EXPECT_EQ("/src/main.c", quotedName("/src/main.c"));
}

TEST(QuotedName, UnicodeIsShownAsItIs) {
    EXPECT_EQ("/home/j\xC3\xBCrgen/caf\xC3\xA9.c", quotedName("/home/j\xC3\xBCrgen/caf\xC3\xA9.c"));
}

TEST(QuotedName, TheCharactersJustOutsidePrintableAsciiAreQuoted) {
    EXPECT_EQ("'a b'", quotedName("a b"));
    EXPECT_EQ("'a'$'\\177''b'", quotedName("a\x7F"
                                           "b"));
    EXPECT_EQ("'a'$'\\037''b'", quotedName("a\x1F"
                                           "b"));
    EXPECT_EQ("'a'\\''b'", quotedName("a'b"));
}

TEST(QuotedName, AnEmptyNameIsTwoQuotes) {
    EXPECT_EQ("''", quotedName(""));
}

TEST(QuotedName, ABrokenByteIsEscaped) {
    EXPECT_EQ("'a'$'\\351'", quotedName("a\xE9"));
}

} // namespace
