// SPDX-License-Identifier: MIT
#include "RulesTesting.hpp"

#include <gtest/gtest.h>

using namespace testing_rules;

TEST(Rule, StartsAsAnAnonymousRule) {
    const ExcludeRule exclude(truth(true));
    const PruneRule prune(truth(false));
    const IncludeRule include(pathList({"/a"}), truth(true));
    EXPECT_EQ(exclude.debugInfo, "<anonymous rule>");
    EXPECT_EQ(prune.debugInfo, "<anonymous rule>");
    EXPECT_EQ(include.debugInfo, "<anonymous rule>");
}

TEST(Rule, KeepsTheConditionItWasGiven) {
    Expression<bool>* condition = equals("$file", "/a");
    const ExcludeRule rule(condition);
    EXPECT_EQ(rule.condition, condition);
}

TEST(Rule, IsAskedWithItsConditionOrTheLiteralFalseWithoutOne) {
    const ExcludeRule rule(equals("$file", "/a"));
    EXPECT_EQ(&conditionOf(rule), rule.condition);
    const PruneRule conditionless(nullptr);
    EXPECT_EQ(printed(conditionOf(conditionless)), "false");
    EXPECT_FALSE(conditionOf(conditionless).evaluate(Bindings("/v", "/a", "/b", "/w")));
}

TEST(Rule, IncludeRuleKeepsItsPathsInOrder) {
    PathList* paths = pathList({"/a", "$dir/b"});
    const IncludeRule rule(paths, truth(true));
    ASSERT_EQ(rule.paths, paths);
    std::ostringstream out;
    printPathList(out, *rule.paths);
    EXPECT_EQ(out.str(), "[/a,$dir/b]");
}

TEST(Rule, ExcludeAndPruneRulesFreeTheirConditions) {
    Tracker tracker;
    delete new ExcludeRule(new TrackedCondition(tracker, "a", true));
    delete new PruneRule(new TrackedCondition(tracker, "b", true));
    EXPECT_EQ(tracker.alive, 0);
}

TEST(Rule, IncludeRuleFreesItsConditionItsPathsAndTheirList) {
    Tracker tracker;
    PathList* paths = new PathList;
    paths->push_back(new TrackedPath(tracker, "/a"));
    paths->push_back(new TrackedPath(tracker, "/b"));
    delete new IncludeRule(paths, new TrackedCondition(tracker, "c", true));
    EXPECT_EQ(tracker.alive, 0);
}

TEST(Rule, MayBeDestroyedWithoutConditionOrPaths) {
    Tracker tracker;
    IncludeRule* rule = new IncludeRule(nullptr, new TrackedCondition(tracker, "c", true));
    delete rule->condition;
    rule->condition = nullptr;
    EXPECT_EQ(tracker.alive, 0);
    delete rule;
    EXPECT_EQ(tracker.alive, 0);
}
