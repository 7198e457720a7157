// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "RulesTesting.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace testing_rules;
using Paths = std::vector<std::string>;

TEST(ParsedRulesQuery, NullListsAnswerNothingAndPrintNothing) {
    ParsedRules rules(nullptr, nullptr, nullptr);
    RecordingIncluder includer;
    EXPECT_FALSE(rules.isExcluded("/a", nullptr, "/b"));
    EXPECT_FALSE(rules.isPruned("/a", nullptr, "/b"));
    rules.getIncludes("/a", nullptr, includer);
    EXPECT_EQ(includer.paths, Paths{});
    EXPECT_EQ(printed(rules), "");
    EXPECT_EQ(rules.getLastMatchText(), "");
}

TEST(ParsedRulesQuery, EmptyListsMatchNothing) {
    ParsedRules rules(new ExcludeRuleList, new PruneRuleList, new IncludeRuleList);
    RecordingIncluder includer;
    EXPECT_FALSE(rules.isExcluded("/a", nullptr, "/b"));
    EXPECT_FALSE(rules.isPruned("/a", nullptr, "/b"));
    rules.getIncludes("/a", nullptr, includer);
    EXPECT_EQ(includer.paths, Paths{});
}

TEST(ParsedRulesQuery, FirstTrueExcludeRuleDecidesAndLaterOnesAreNotEvaluated) {
    Tracker tracker;
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("A", new TrackedCondition(tracker, "a", false)),
                                          rule<ExcludeRule>("B", new TrackedCondition(tracker, "b", true)),
                                          rule<ExcludeRule>("C", new TrackedCondition(tracker, "c", true))},
                      nullptr, nullptr);
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, "/c"));
    EXPECT_EQ(rules.getLastMatchText(), "B");
    EXPECT_EQ(tracker.log, (Paths{"evaluate a", "evaluate b"}));
}

TEST(ParsedRulesQuery, PruneQueryUsesThePruneRulesOnly) {
    ParsedRules rules(
        new ExcludeRuleList{rule<ExcludeRule>("E", equals("$file", "/f"))},
        new PruneRuleList{rule<PruneRule>("P1", equals("$file", "/g")), rule<PruneRule>("P2", equals("$caller", "/c"))},
        nullptr);
    EXPECT_TRUE(rules.isPruned("/f", nullptr, "/c"));
    EXPECT_EQ(rules.getLastMatchText(), "P2");
    EXPECT_FALSE(rules.isPruned("/f", nullptr, "/d"));
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, "/d"));
    EXPECT_EQ(rules.getLastMatchText(), "E");
}

TEST(ParsedRulesQuery, SecondOfTwoExcludeRulesReportsItsOwnText) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("rule A", equals("$file", "/a")),
                                          rule<ExcludeRule>("rule B", equals("$file", "/b"))},
                      nullptr, nullptr);
    EXPECT_TRUE(rules.isExcluded("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "rule B");
}

TEST(ParsedRulesQuery, MissKeepsThePreviousMatchText) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("$file", "/a"))},
                      new PruneRuleList{rule<PruneRule>("P", equals("$file", "/a"))}, nullptr);
    EXPECT_TRUE(rules.isExcluded("/a", nullptr, nullptr));
    EXPECT_FALSE(rules.isExcluded("/z", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "E");
    EXPECT_FALSE(rules.isPruned("/z", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "E");
}

// Asked before and after a change of configuration: the first queries after
// a change are answered rule by rule, the others from the prepared rules,
// and both must pass over a rule without condition.
TEST(ParsedRulesQuery, RulesWithoutConditionNeverHold) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E0", nullptr), rule<ExcludeRule>("E", truth(true))},
                      new PruneRuleList{rule<PruneRule>("P0", nullptr)},
                      new IncludeRuleList{includeRule({"/none"}, nullptr), includeRule({"/x.h"}, truth(true))});
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
        EXPECT_EQ(rules.getLastMatchText(), "E");
        EXPECT_FALSE(rules.isPruned("/f", nullptr, nullptr));
        RecordingIncluder includer;
        rules.getIncludes("/f", nullptr, includer);
        EXPECT_EQ(includer.paths, Paths{"/x.h"});
        rules.bindVariable("x", "/v");
    }
}

TEST(ParsedRulesQuery, QueriesSeeTheFileItsPartsAndTheCaller) {
    ParsedRules rules(
        new ExcludeRuleList{rule<ExcludeRule>("E", all({equals("$file", "/s/m.c"), equals("$dir", "/s"),
                                                        equals("$name$ext", "m.c"), equals("$caller", "/s/top.c")}))},
        nullptr, nullptr);
    EXPECT_TRUE(rules.isExcluded("/s/m.c", "ignored", "/s/top.c"));
    EXPECT_FALSE(rules.isExcluded("/s/m.c", "ignored", "/s/other.c"));
}

TEST(ParsedRulesQuery, NullFileAndCallerAreEmpty) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("[$file][$caller][$name]", "[][][]"))}, nullptr,
                      nullptr);
    EXPECT_TRUE(rules.isExcluded(nullptr, nullptr, nullptr));
}

TEST(ParsedRulesQuery, UnsetRootGivesAnEmptyVantorAndARootToolbox) {
    ParsedRules rules(
        new ExcludeRuleList{rule<ExcludeRule>(
            "E", all({equals("[$vantor]", "[]"), equals("$toolbox", "/toolbox"), equals("[$cwd]", "[]")}))},
        nullptr, nullptr);
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
}

TEST(ParsedRulesQuery, RootAndCwdReachTheBindings) {
    ParsedRules rules(
        new ExcludeRuleList{rule<ExcludeRule>(
            "E", all({equals("$vantor", "/opt/v"), equals("$toolbox", "/opt/v/toolbox"), equals("$cwd", "/work")}))},
        nullptr, nullptr);
    rules.setVantorRoot("/opt/v");
    EXPECT_FALSE(rules.isExcluded("/f", nullptr, nullptr));
    rules.setCwd("/work");
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
}

TEST(ParsedRulesQuery, IncludeQuerySeesAnEmptyCallerWhereTheOthersSeeIt) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("$caller", "/top.c"))},
                      new PruneRuleList{rule<PruneRule>("P", equals("$caller", "/top.c"))},
                      new IncludeRuleList{includeRule({"/inc[$caller]"}, truth(true)),
                                          includeRule({"/never"}, equals("$caller", "/top.c"))});
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, "/top.c"));
    EXPECT_TRUE(rules.isPruned("/f", nullptr, "/top.c"));
    RecordingIncluder includer;
    rules.getIncludes("/f", nullptr, includer);
    EXPECT_EQ(includer.paths, Paths{"/inc[]"});
}

TEST(ParsedRulesQuery, EveryIncludeRuleIsApplied) {
    ParsedRules rules(nullptr, nullptr,
                      new IncludeRuleList{includeRule({"$dir/$name.h"}, truth(true)),
                                          includeRule({"/skipped"}, truth(false)),
                                          includeRule({"/x", "/y"}, equals("$ext", ".c"))});
    RecordingIncluder includer;
    rules.getIncludes("/s/m.c", nullptr, includer);
    EXPECT_EQ(includer.paths, (Paths{"/s/m.h", "/x", "/y"}));
    EXPECT_EQ(rules.getLastMatchText(), "");
}

// Under the leak checker this proves the query's bindings are released too.
TEST(ParsedRulesQuery, IncludersExceptionPassesThroughGetIncludes) {
    ParsedRules rules(nullptr, nullptr, new IncludeRuleList{includeRule({"$dir/$name.h"}, truth(true))});
    ThrowingIncluder includer;
    EXPECT_THROW(rules.getIncludes("/s/m.c", nullptr, includer), std::runtime_error);
}

TEST(ParsedRulesQuery, DestructionFreesEveryListRuleAndCondition) {
    Tracker tracker;
    PathList* paths = new PathList{new TrackedPath(tracker, "/a"), new TrackedPath(tracker, "/b")};
    QuorelRules* rules =
        new ParsedRules(new ExcludeRuleList{rule<ExcludeRule>("E1", new TrackedCondition(tracker, "e1", false)),
                                            rule<ExcludeRule>("E2", new TrackedCondition(tracker, "e2", false))},
                        new PruneRuleList{rule<PruneRule>("P", new TrackedCondition(tracker, "p", false))},
                        new IncludeRuleList{new IncludeRule(paths, new TrackedCondition(tracker, "i", false))});
    EXPECT_EQ(tracker.alive, 6);
    delete rules;
    EXPECT_EQ(tracker.alive, 0);
}
