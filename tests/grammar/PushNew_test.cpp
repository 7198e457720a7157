// SPDX-License-Identifier: MIT
#include "grammar/actions/PushNew.hpp"

#include "expr/PathLiteral.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using QuorelScript::Expression;
using QuorelScript::ParserImpl;
using QuorelScript::Path;
using QuorelScript::PathLiteral;
using QuorelScript::PushNew;

namespace {

// The path literal that the action pushes for `matched`, printed.
std::string pushedFor(const std::string& matched) {
    ParserImpl impl;
    PushNew<PathLiteral>{impl}(matched.c_str(), matched.c_str() + matched.size());
    EXPECT_EQ(1u, impl.stack<Expression<Path>>().size());
    std::ostringstream out;
    impl.stack<Expression<Path>>().top().print(out);
    return out.str();
}

} // namespace

TEST(PushNewPathLiteral, PlainTextIsKeptAsWritten) {
    EXPECT_EQ("$dir//a/./*.c", pushedFor("$dir//a/./*.c"));
}

TEST(PushNewPathLiteral, QuotedTextLosesBothQuotesAndKeepsInnerSpaces) {
    EXPECT_EQ(" my  file ", pushedFor("\" my  file \""));
}

TEST(PushNewPathLiteral, LeadingQuoteAloneIsDropped) {
    EXPECT_EQ("ab", pushedFor("\"ab"));
}

TEST(PushNewPathLiteral, TrailingQuoteAloneIsDropped) {
    EXPECT_EQ("ab", pushedFor("ab\""));
}

TEST(PushNewPathLiteral, QuotesInsideAreKept) {
    EXPECT_EQ("a\"b", pushedFor("\"a\"b\""));
}

TEST(PushNewPathLiteral, SingleQuoteLeavesAnEmptyPath) {
    EXPECT_EQ("", pushedFor("\""));
}

TEST(PushNewPathLiteral, WorksOnStringIterators) {
    ParserImpl impl;
    std::string matched = "\"a b\"";
    PushNew<PathLiteral>{impl}(matched.cbegin(), matched.cend());
    std::ostringstream out;
    impl.stack<Expression<Path>>().top().print(out);
    EXPECT_EQ("a b", out.str());
}
