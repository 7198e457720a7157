// SPDX-License-Identifier: MIT
// exclude, prune and include statements.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(RuleStatement, ExcludeIf) {
    EXPECT_EQ("\texclude if exists(a)\n\n", printed("exclude if a exists\n"));
}

TEST(RuleStatement, ExcludeUnlessNegatesTheCondition) {
    EXPECT_EQ("\texclude if not(equals(x,y))\n\n", printed("exclude unless x == y\n"));
    EXPECT_EQ("\texclude if not(exists(a))\n\n", printed("exclude unless a exists\n"));
}

TEST(RuleStatement, PruneIfAndUnless) {
    EXPECT_EQ("\tprune if exists(a)\n\tprune if not(exists(b))\n\n",
              printed("prune if a exists\nprune unless b exists\n"));
}

TEST(RuleStatement, IncludeIfAndUnless) {
    EXPECT_EQ("\tinclude [a,b] if exists(c)\n\tinclude [d] if not(exists(e))\n\n",
              printed("include [a, b] if c exists\ninclude d unless e exists\n"));
}

// The items after the first swallow the blanks behind them, and include
// needs one blank before "if".
TEST(RuleStatement, IncludeOfABareListOfTwoIsRejected) {
    EXPECT_EQ(syntaxError, printed("include a, b if c exists\n"));
    EXPECT_EQ("\tinclude [a] if exists(c)\n\n", printed("include a if c exists\n"));
}

TEST(RuleStatement, IncludeNeedsABlankBeforeTheCondition) {
    EXPECT_EQ(syntaxError, printed("include [a]if c exists\n"));
}

// The keywords of a statement have no boundary of their own: they need at
// least one blank after them.
TEST(RuleStatement, StatementKeywordNeedsABlankAfterIt) {
    EXPECT_EQ(syntaxError, printed("excludeif true\n"));
    EXPECT_EQ(syntaxError, printed("prune\nif true\n"));
    EXPECT_EQ(syntaxError, printed("include[a] if true\n"));
}

TEST(RuleStatement, IfAndUnlessNeedABoundary) {
    EXPECT_EQ(syntaxError, printed("exclude iftrue\n"));
    EXPECT_EQ(excluding("true"), printed("exclude if(true)\n"));
}

TEST(RuleStatement, LeadingAndTrailingBlanks) {
    EXPECT_EQ(excluding("true"), printed("  \texclude if true \t\n"));
}

TEST(RuleStatement, OneStatementPerLine) {
    EXPECT_EQ(syntaxError, printed("exclude if true exclude if false\n"));
}

TEST(RuleStatement, MissingConditionIsRejected) {
    EXPECT_EQ(syntaxError, printed("exclude\n"));
    EXPECT_EQ(syntaxError, printed("exclude a exists\n"));
}

TEST(RuleStatement, LastStatementMayEndTheText) {
    EXPECT_EQ("\tinclude [a] if exists(c)\n\n", printed("include a if c exists"));
}
