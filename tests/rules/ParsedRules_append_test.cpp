// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "RulesTesting.hpp"

#include <gtest/gtest.h>

using namespace testing_rules;

TEST(ParsedRulesAppend, RulesGoToTheEndOfTheirLists) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E1", exists("/e1"))},
                      new PruneRuleList{rule<PruneRule>("P1", exists("/p1"))},
                      new IncludeRuleList{includeRule({"/i1"}, truth(true))});
    rules.appendExcludeRule(rule<ExcludeRule>("E2", exists("/e2")));
    rules.appendIncludeRule(includeRule({"/i2"}, truth(false)));
    rules.appendPruneRule(rule<PruneRule>("P2", exists("/p2")));
    rules.appendExcludeRule(rule<ExcludeRule>("E3", exists("/e3")));
    EXPECT_EQ(printed(rules), "\texclude if exists(/e1)\n"
                              "\texclude if exists(/e2)\n"
                              "\texclude if exists(/e3)\n"
                              "\n"
                              "\tprune if exists(/p1)\n"
                              "\tprune if exists(/p2)\n"
                              "\n"
                              "\tinclude [/i1] if true\n"
                              "\tinclude [/i2] if false\n"
                              "\n");
}

TEST(ParsedRulesAppend, AppendedRulesTakePartInQueries) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E1", equals("$file", "/a"))}, nullptr, nullptr);
    rules.appendExcludeRule(rule<ExcludeRule>("E2", equals("$file", "/b")));
    EXPECT_TRUE(rules.isExcluded("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "E2");
}

TEST(ParsedRulesAppend, AppendedRulesAreFreedWithTheRuleSet) {
    Tracker tracker;
    {
        ParsedRules rules(new ExcludeRuleList, new PruneRuleList, new IncludeRuleList);
        rules.appendExcludeRule(rule<ExcludeRule>("E", new TrackedCondition(tracker, "e", true)));
        rules.appendPruneRule(rule<PruneRule>("P", new TrackedCondition(tracker, "p", true)));
        rules.appendIncludeRule(
            new IncludeRule(new PathList{new TrackedPath(tracker, "/a")}, new TrackedCondition(tracker, "i", true)));
        EXPECT_EQ(tracker.alive, 4);
    }
    EXPECT_EQ(tracker.alive, 0);
}

TEST(ParsedRulesAppend, AppendingToAMissingListCreatesIt) {
    ParsedRules rules(nullptr, nullptr, nullptr);
    rules.appendPruneRule(rule<PruneRule>("P", equals("$file", "/p")));
    EXPECT_EQ(printed(rules), "\tprune if equals($file,/p)\n"
                              "\n");
    EXPECT_TRUE(rules.isPruned("/p", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "P");
}
