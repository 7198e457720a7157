// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using namespace testing_rules;

namespace {

using Calls = std::vector<std::pair<std::string, std::string>>;

// Sees the variables that precompute binds through the virtual table.
class ObservedRules : public ParsedRules {
public:
    using ParsedRules::ParsedRules;

    void bindVariable(const char* name, const char* value) override {
        bound.emplace_back(name, value);
        ParsedRules::bindVariable(name, value);
    }

    Calls bound;
};

ExcludeRuleList* excludeRules(std::initializer_list<ExcludeRule*> rules) {
    return new ExcludeRuleList(rules);
}

} // namespace

TEST(ParsedRulesPrecompute, BindsRootToolboxCwdThenTheFixedVariables) {
    ObservedRules rules(nullptr, nullptr, nullptr);
    rules.setVantorRoot("/opt/v/");
    rules.setCwd("/work");
    rules.precompute();
    EXPECT_EQ(rules.bound, (Calls{{"vantor", "/opt/v/"},
                                  {"toolbox", "/opt/v//toolbox"},
                                  {"cwd", "/work"},
                                  {"arch", "ia32lx"},
                                  {"lib", ".so"},
                                  {"vrk", ".vrkilx"}}));
}

TEST(ParsedRulesPrecompute, BindsOnlyTheFixedVariablesWhenNothingWasSet) {
    ObservedRules rules(nullptr, nullptr, nullptr);
    rules.precompute();
    EXPECT_EQ(rules.bound, (Calls{{"arch", "ia32lx"}, {"lib", ".so"}, {"vrk", ".vrkilx"}}));
}

TEST(ParsedRulesPrecompute, BindsAnEmptyRootOnceItWasSet) {
    ObservedRules rules(nullptr, nullptr, nullptr);
    rules.setVantorRoot("");
    rules.precompute();
    EXPECT_EQ(rules.bound,
              (Calls{{"vantor", ""}, {"toolbox", "/toolbox"}, {"arch", "ia32lx"}, {"lib", ".so"}, {"vrk", ".vrkilx"}}));
}

TEST(ParsedRulesPrecompute, MergedExcludeRulesReportTheFirstRulesText) {
    ParsedRules rules(excludeRules({rule<ExcludeRule>("rule A", equals("$file", "/a")),
                                    rule<ExcludeRule>("rule B", equals("$file", "/b"))}),
                      nullptr, nullptr);
    EXPECT_TRUE(rules.isExcluded("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "rule B");
    rules.precompute();
    EXPECT_TRUE(rules.isExcluded("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "rule A");
    EXPECT_FALSE(rules.isExcluded("/c", nullptr, nullptr));
}

TEST(ParsedRulesPrecompute, MergedPruneRulesReportTheFirstRulesText) {
    ParsedRules rules(nullptr,
                      new PruneRuleList{rule<PruneRule>("rule A", equals("$file", "/a")),
                                        rule<PruneRule>("rule B", equals("$file", "/b"))},
                      nullptr);
    EXPECT_TRUE(rules.isPruned("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "rule B");
    rules.precompute();
    EXPECT_TRUE(rules.isPruned("/b", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "rule A");
    EXPECT_EQ(printed(rules), "\tprune if or([equals($file,/a),equals($file,/b)])\n\n");
}

TEST(ParsedRulesPrecompute, MergesExcludeAndPruneRulesAndSimplifiesThem) {
    ParsedRules rules(
        excludeRules({rule<ExcludeRule>("E1", equals("$file", "/a")),
                      rule<ExcludeRule>("E2", both(in("$file", {"$toolbox"}), negation(negation(exists("$file"))))),
                      rule<ExcludeRule>("E3", equals("$arch", "x86"))}),
        new PruneRuleList{rule<PruneRule>("P1", either(exists("$cwd/$name$lib"), exists("$file$vrk"))),
                          rule<PruneRule>("P2", both(truth(true), negation(truth(true))))},
        nullptr);
    rules.setVantorRoot("/opt/v");
    rules.setCwd("/work");
    rules.precompute();
    EXPECT_EQ(printed(rules), "\texclude if or([equals($file,/a),or([in($file,[/opt/v/toolbox]),exists($file)])])\n"
                              "\n"
                              "\tprune if or([exists(/work/$name.so),exists($file.vrkilx)])\n"
                              "\n");
}

TEST(ParsedRulesPrecompute, SingleRuleIsSimplifiedButNotWrapped) {
    ParsedRules rules(excludeRules({rule<ExcludeRule>("E", both(exists("$file"), exists("$dir")))}),
                      new PruneRuleList{rule<PruneRule>("P", negation(negation(exists("$file"))))}, nullptr);
    rules.precompute();
    EXPECT_EQ(printed(rules), "\texclude if or([exists($file),exists($dir)])\n"
                              "\n"
                              "\tprune if exists($file)\n"
                              "\n");
}

TEST(ParsedRulesPrecompute, ConditionWithoutVariablesBecomesTheLiteralTrue) {
    ParsedRules rules(excludeRules({rule<ExcludeRule>("E", both(truth(true), negation(truth(false))))}), nullptr,
                      nullptr);
    rules.precompute();
    EXPECT_EQ(printed(rules), "\texclude if true\n\n");
    EXPECT_TRUE(rules.isExcluded("/anything", nullptr, nullptr));
    EXPECT_EQ(rules.getLastMatchText(), "E");
}

TEST(ParsedRulesPrecompute, RulesWithoutConditionAddNothingToTheMergeAndStayWithoutOne) {
    ParsedRules rules(excludeRules({rule<ExcludeRule>("E0", nullptr), rule<ExcludeRule>("E", exists("$file"))}),
                      new PruneRuleList{rule<PruneRule>("P", nullptr)}, nullptr);
    rules.precompute();
    rules.precompute();
    EXPECT_EQ(printed(rules), "\texclude if exists($file)\n\n\tprune if false\n\n");
    EXPECT_FALSE(rules.isPruned("/a", nullptr, nullptr));
}

TEST(ParsedRulesPrecompute, IncludeRulesAreNeverMergedAndOnlyBound) {
    ParsedRules rules(nullptr, nullptr,
                      new IncludeRuleList{includeRule({"$vantor/a"}, equals("$arch", "ia32lx")),
                                          includeRule({"/b"}, negation(negation(exists("$file"))))});
    rules.setVantorRoot("/opt/v");
    rules.precompute();
    EXPECT_EQ(printed(rules), "\tinclude [$vantor/a] if equals(ia32lx,ia32lx)\n"
                              "\tinclude [/b] if not(not(exists($file)))\n"
                              "\n");
    RecordingIncluder includer;
    rules.getIncludes("/f", nullptr, includer);
    EXPECT_EQ(includer.paths, std::vector<std::string>{"/opt/v/a"});
}

TEST(ParsedRulesPrecompute, EmptyAndNullListsStayAsTheyAre) {
    ParsedRules rules(new ExcludeRuleList, nullptr, new IncludeRuleList);
    rules.precompute();
    EXPECT_EQ(printed(rules), "\n\n");
}

TEST(ParsedRulesPrecompute, MergedRulesAreFreedAndTheirConditionsKept) {
    Tracker tracker;
    {
        ParsedRules rules(excludeRules({rule<ExcludeRule>("E1", new TrackedCondition(tracker, "a", false)),
                                        rule<ExcludeRule>("E2", new TrackedCondition(tracker, "b", false)),
                                        rule<ExcludeRule>("E3", new TrackedCondition(tracker, "c", true))}),
                          nullptr, nullptr);
        rules.precompute();
        EXPECT_EQ(tracker.alive, 3);
        EXPECT_EQ(printed(rules), "\texclude if or([a,b,c])\n\n");
        tracker.log.clear();
        EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
        EXPECT_EQ(tracker.log, (std::vector<std::string>{"evaluate a", "evaluate b", "evaluate c"}));
        EXPECT_EQ(rules.getLastMatchText(), "E1");
    }
    EXPECT_EQ(tracker.alive, 0);
}

// Intended: the file a fixed path names is the same for every query, so
// precompute asks once and keeps the answer, even when the file goes later.
TEST(ParsedRulesPrecompute, ExistsOverAFixedPathIsAskedOnceAtPrecompute) {
    TempTree tree;
    const std::string marker = tree.file("marker");
    ParsedRules rules(excludeRules({rule<ExcludeRule>("E", exists(marker))}), nullptr, nullptr);
    rules.precompute();
    std::filesystem::remove(marker);
    EXPECT_EQ(printed(rules), "\texclude if true\n\n");
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
}
