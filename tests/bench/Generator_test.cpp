// SPDX-License-Identifier: MIT
#include "Generator.hpp"
#include "RuleCount.hpp"
#include "Yardstick.hpp"

#include <gtest/gtest.h>

using namespace qxqr::bench;

namespace {

// Whether some rule of `yardstick` decides anything about `file`.
bool isHit(Yardstick& yardstick, const std::string& file) {
    bool includes = false;
    yardstick.getIncludes(file, [&](const char*) { includes = true; });
    return includes || yardstick.isExcluded(file) || yardstick.isPruned(file);
}

} // namespace

TEST(Generator, SameSeedSameRulesAndQueries) {
    std::vector<Rule> rules = generateRules(50, 7);
    EXPECT_EQ(scriptText(rules), scriptText(generateRules(50, 7)));
    EXPECT_EQ(generateQueries(rules, Settings(), 100, 3), generateQueries(rules, Settings(), 100, 3));
}

TEST(Generator, OtherSeedOtherRulesAndQueries) {
    std::vector<Rule> rules = generateRules(50, 7);
    EXPECT_NE(scriptText(rules), scriptText(generateRules(50, 8)));
    EXPECT_NE(generateQueries(rules, Settings(), 100, 3), generateQueries(rules, Settings(), 100, 4));
}

TEST(Generator, HalfExcludeAQuarterPruneAQuarterInclude) {
    std::vector<Rule> rules = generateRules(100, 1);
    EXPECT_EQ(50u, countOf(rules, RuleKind::exclude));
    EXPECT_EQ(25u, countOf(rules, RuleKind::prune));
    EXPECT_EQ(25u, countOf(rules, RuleKind::include));
}

TEST(Generator, EveryRuleHoldsForItsHitExample) {
    Settings settings;
    for (const Rule& rule : generateRules(200, 2)) {
        Yardstick alone({rule}, settings);
        EXPECT_TRUE(isHit(alone, exampleFile(rule.hitExample, settings, 42))) << statementText(rule);
    }
}

TEST(Generator, AboutHalfTheQueriesAreHits) {
    Settings settings;
    std::vector<Rule> rules = generateRules(100, 5);
    Yardstick yardstick(rules, settings);
    std::size_t hits = 0;
    std::vector<std::string> queries = generateQueries(rules, settings, 2000, 6);
    for (const std::string& file : queries)
        hits += isHit(yardstick, file);
    EXPECT_GT(hits, queries.size() * 4 / 10);
    EXPECT_LT(hits, queries.size() * 6 / 10);
}

TEST(Generator, ExampleFileFillsInHostValuesAndStem) {
    Settings settings;
    settings.cwd = "/w";
    EXPECT_EQ("/w/src/f17.c", exampleFile("$cwd/src/{stem}.c", settings, 17));
    EXPECT_EQ("/w/plugins/a.vrkilx", exampleFile("$cwd/plugins/a$vrk", settings, 17));
}
