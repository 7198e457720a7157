// SPDX-License-Identifier: MIT
#include "frontend/SyntaxErrorReport.hpp"

#include <gtest/gtest.h>

#include <sstream>

using QuorelScript::reportNestingTooDeep;
using QuorelScript::reportSyntaxError;

namespace {

std::string reported(const char* cursor, int line = 1) {
    std::ostringstream out;
    reportSyntaxError(out, "n", line, cursor);
    return out.str();
}

} // namespace

TEST(SyntaxErrorReport, OffendingTextEndsAtTheFirstLineFeed) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 12:\nbad line\n\n", reported("bad line\nnext\n", 12));
}

TEST(SyntaxErrorReport, CarriageReturnLineFeedIsSearchedFirst) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 1:\na\nb\nc\n\n", reported("a\nb\nc\r\nd\n"));
}

TEST(SyntaxErrorReport, LoneCarriageReturnStaysInTheText) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 1:\na\rb\n\n", reported("a\rb\nc"));
}

TEST(SyntaxErrorReport, WithoutLineEndTheRestOfTheText) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 1:\nthe rest\n\n", reported("the rest"));
}

TEST(SyntaxErrorReport, EmptyRest) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 1:\n\n\n", reported("\nmore"));
}

TEST(SyntaxErrorReport, WithoutSource) {
    EXPECT_EQ("Syntax error in quorel rules script (n) at line 3:\n<source unavailable>\n\n", reported(nullptr, 3));
}

TEST(SyntaxErrorReport, NestingTooDeepIsOneLine) {
    std::ostringstream out;
    reportNestingTooDeep(out, 50);
    EXPECT_EQ("The condition nests deeper than 50 levels.\n", out.str());
}
