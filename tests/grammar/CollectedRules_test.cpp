// SPDX-License-Identifier: MIT
#include "grammar/CollectedRules.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

using QuorelScript::CollectedRules;

namespace {

// A rule that counts the live instances of its kind.
struct CountedRule {
    explicit CountedRule(int id) : id(id) { ++alive; }
    ~CountedRule() { --alive; }
    int id;
    static int alive;
};
int CountedRule::alive = 0;

void add(CollectedRules<CountedRule>& rules, int id) {
    rules.push(std::unique_ptr<CountedRule>(new CountedRule(id)));
}

} // namespace

TEST(CollectedRules, ListIsCreatedByTheFirstRule) {
    CollectedRules<CountedRule> rules;
    EXPECT_EQ(nullptr, rules.list());
    EXPECT_TRUE(rules.empty());
    add(rules, 1);
    ASSERT_NE(nullptr, rules.list());
    EXPECT_EQ(1, rules.last().id);
}

TEST(CollectedRules, RulesStillHeldAreDeletedWithTheCollection) {
    {
        CollectedRules<CountedRule> rules;
        add(rules, 1);
        add(rules, 2);
        EXPECT_EQ(2, CountedRule::alive);
    }
    EXPECT_EQ(0, CountedRule::alive);
}

TEST(CollectedRules, HandOverPassesEveryRuleInOrderAndKeepsAnEmptyList) {
    CollectedRules<CountedRule> rules;
    for (int id = 1; id <= 3; ++id)
        add(rules, id);
    std::vector<std::unique_ptr<CountedRule>> taken;
    rules.handOver([&taken](CountedRule* rule) { taken.emplace_back(rule); });
    ASSERT_EQ(3u, taken.size());
    EXPECT_EQ(1, taken[0]->id);
    EXPECT_EQ(3, taken[2]->id);
    ASSERT_NE(nullptr, rules.list());
    EXPECT_TRUE(rules.list()->empty());
}

TEST(CollectedRules, ReleaseGivesUpTheList) {
    CollectedRules<CountedRule> rules;
    add(rules, 1);
    std::unique_ptr<CollectedRules<CountedRule>::List> list(rules.release());
    EXPECT_EQ(nullptr, rules.list());
    ASSERT_EQ(1u, list->size());
    delete list->front();
}

// The receiver owns each rule it is given, also when it fails to keep it;
// the rules not reached stay in the collection.
TEST(CollectedRules, FailedHandOverKeepsTheRulesNotReached) {
    {
        CollectedRules<CountedRule> rules;
        for (int id = 1; id <= 3; ++id)
            add(rules, id);
        std::vector<std::unique_ptr<CountedRule>> taken;
        auto takeOne = [&taken](CountedRule* rule) {
            std::unique_ptr<CountedRule> owned(rule);
            if (rule->id == 2)
                throw std::runtime_error("full");
            taken.push_back(std::move(owned));
        };
        EXPECT_THROW(rules.handOver(takeOne), std::runtime_error);
        ASSERT_EQ(1u, rules.list()->size());
        EXPECT_EQ(3, rules.last().id);
        EXPECT_EQ(2, CountedRule::alive);
    }
    EXPECT_EQ(0, CountedRule::alive);
}
