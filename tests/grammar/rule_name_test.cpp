// SPDX-License-Identifier: MIT
// The text that names each rule: script, line, then the statement as written
// from its first leading blank to the end of its condition.
#include "GrammarTesting.hpp"

#include "rules/Rule.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;
using QuorelScript::ExcludeRule;
using QuorelScript::IncludeRule;
using QuorelScript::ParserImpl;
using QuorelScript::PruneRule;

namespace {

using Names = std::vector<std::string>;

} // namespace

TEST(RuleName, LeadingBlanksBelongToTheStatementButTheStatementEndDoesNot) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, " \texclude if a exists  % note\n"));
    EXPECT_EQ(Names{"<anonymous script>, line 1: \n \texclude if a exists"}, ruleNames<ExcludeRule>(impl));
}

// The last item of a bare list takes the blanks behind it into the condition.
TEST(RuleName, BareListKeepsTheBlanksAfterItsLastItem) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "exclude if x in a, b  \n"));
    EXPECT_EQ(Names{"<anonymous script>, line 1: \nexclude if x in a, b  "}, ruleNames<ExcludeRule>(impl));
}

TEST(RuleName, EachKindIsNamed) {
    ParserImpl impl;
    impl.setScriptName("k.qr");
    ASSERT_TRUE(matchAll(impl, "prune unless a exists\ninclude [b, c] unless true\n"));
    EXPECT_EQ(Names{"k.qr, line 1: \nprune unless a exists"}, ruleNames<PruneRule>(impl));
    EXPECT_EQ(Names{"k.qr, line 2: \ninclude [b, c] unless true"}, ruleNames<IncludeRule>(impl));
}

TEST(RuleName, ContinuationKeepsItsDotsAndLineEnd) {
    ParserImpl impl;
    ASSERT_TRUE(matchAll(impl, "exclude if a exists and ...\r\n b exists\r\n"));
    EXPECT_EQ(Names{"<anonymous script>, line 2: \nexclude if a exists and ...\r\n b exists"},
              ruleNames<ExcludeRule>(impl));
}
