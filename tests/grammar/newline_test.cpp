// SPDX-License-Identifier: MIT
// Line ends and the line counter.
#include "GrammarTesting.hpp"

#include "rules/Rule.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;
using QuorelScript::ExcludeRule;
using QuorelScript::ParserImpl;

TEST(Newline, EveryLineEndCountsOneLineFromLineOne) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "\n\r\n% c\n  \n"));
    EXPECT_EQ(5, impl.lineCount());
}

TEST(Newline, CountStartsAtOneForEveryParse) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "\n\n"));
    ASSERT_TRUE(matchAll(impl, ""));
    EXPECT_EQ(1, impl.lineCount());
}

TEST(Newline, LoneCarriageReturnIsNoLineEnd) {
    EXPECT_EQ(syntaxError, printed("exclude if true\r"));
}

TEST(Newline, RulesAreNamedAfterTheirLines) {
    ParserImpl impl;
    impl.setScriptName("s.qr");
    ASSERT_TRUE(matchAll(impl, "exclude if a exists\nexclude if b exists\n"));
    EXPECT_EQ((std::vector<std::string>{"s.qr, line 1: \nexclude if a exists", "s.qr, line 2: \nexclude if b exists"}),
              ruleNames<ExcludeRule>(impl));
}

TEST(Newline, ContinuedRuleIsOneRuleNamedAfterTheLineWhereItEnds) {
    ParserImpl impl;
    impl.setScriptName("s.qr");
    ASSERT_TRUE(matchAll(impl, "% one\n% two\nexclude if a exists and ...\n  b exists\nexclude if c exists\n"));
    EXPECT_EQ((std::vector<std::string>{"s.qr, line 4: \nexclude if a exists and ...\n  b exists",
                                        "s.qr, line 5: \nexclude if c exists"}),
              ruleNames<ExcludeRule>(impl));
    EXPECT_EQ(6, impl.lineCount());
}

// The continuation after "a exists" is matched three times: by the attempts
// to continue with "and" and with "or", which fail, and by the end of the
// statement. Each time its line end is counted; the rule is named after the
// two failed attempts, the next rule after all three and the empty line.
TEST(Newline, LineEndsInsideFailedAttemptsStayCounted) {
    ParserImpl impl;
    impl.setScriptName("s.qr");
    ASSERT_TRUE(matchAll(impl, "exclude if a exists ...\n\nexclude if b exists\n"));
    EXPECT_EQ((std::vector<std::string>{"s.qr, line 3: \nexclude if a exists", "s.qr, line 5: \nexclude if b exists"}),
              ruleNames<ExcludeRule>(impl));
}

TEST(Newline, SyntaxErrorLineIncludesLineEndsOfFailedAttempts) {
    QuorelScript::Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.parse("exclude if a exists ...\n bogus\n");
    EXPECT_EQ("Syntax error in quorel rules script (<anonymous script>) at line 4:\nexclude if a exists ...\n\n",
              errors.str());
}
