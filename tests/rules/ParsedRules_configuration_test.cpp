// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace testing_rules;
using Texts = std::vector<std::string>;

namespace {

// Sees the calls that ParsedRules makes on itself through the virtual table.
class ObservedRules : public ParsedRules {
public:
    using ParsedRules::ParsedRules;

    void setCwd(const char* dir) override {
        cwds.push_back(dir);
        ParsedRules::setCwd(dir);
    }

    Texts cwds;
};

// Makes `directory` the current one for as long as it lives.
class InDirectory {
public:
    explicit InDirectory(const std::string& directory) : previous_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory);
    }
    InDirectory(const InDirectory&) = delete;
    InDirectory& operator=(const InDirectory&) = delete;
    ~InDirectory() { std::filesystem::current_path(previous_); }

private:
    std::filesystem::path previous_;
};

} // namespace

TEST(ParsedRulesConfiguration, SetCwdFromProcessGoesThroughSetCwd) {
    TempTree tree;
    const InDirectory inside(tree.dir("work"));
    ObservedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("$cwd", tree.path("work")))}, nullptr,
                        nullptr);
    rules.setCwdFromProcess();
    EXPECT_EQ(rules.cwds, Texts{tree.path("work")});
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
}

// The directory's name ends in a blank, which normalization removes.
TEST(ParsedRulesConfiguration, SetCwdFromProcessNormalizesTheDirectory) {
    TempTree tree;
    const InDirectory inside(tree.dir("work "));
    ObservedRules rules(nullptr, nullptr, nullptr);
    rules.setCwdFromProcess();
    EXPECT_EQ(rules.cwds, Texts{tree.path("work")});
}

TEST(ParsedRulesConfiguration, SetCwdIsStoredAsGiven) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("$cwd", "/a/b"))}, nullptr, nullptr);
    rules.setCwd("/a//b");
    EXPECT_TRUE(rules.isExcluded("/f", nullptr, nullptr));
    rules.setCwd("/c");
    EXPECT_FALSE(rules.isExcluded("/f", nullptr, nullptr));
}

TEST(ParsedRulesConfiguration, BindVariableSubstitutesIntoConditionsOnly) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", in("$file", {"$x/a", "/b"}))},
                      new PruneRuleList{rule<PruneRule>("P", exists("$x"))},
                      new IncludeRuleList{includeRule({"$x/inc", "/c"}, equals("$x", "$file"))});
    rules.bindVariable("x", "/v//w");
    EXPECT_EQ(printed(rules), "\texclude if in($file,[/v/w/a,/b])\n\n"
                              "\tprune if exists(/v/w)\n\n"
                              "\tinclude [$x/inc,/c] if equals(/v/w,$file)\n\n");
}

TEST(ParsedRulesConfiguration, BindVariableVisitsExcludePruneThenIncludeConditions) {
    Tracker tracker;
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E1", new TrackedCondition(tracker, "e1", true)),
                                          rule<ExcludeRule>("E2", new TrackedCondition(tracker, "e2", true))},
                      new PruneRuleList{rule<PruneRule>("P", new TrackedCondition(tracker, "p", true))},
                      new IncludeRuleList{new IncludeRule(new PathList{new TrackedPath(tracker, "/a")},
                                                          new TrackedCondition(tracker, "i", true))});
    rules.bindVariable("x", "/v");
    EXPECT_EQ(tracker.log, (Texts{"substitute e1", "substitute e2", "substitute p", "substitute i"}));
}

TEST(ParsedRulesConfiguration, BindVariableSkipsRulesWithoutCondition) {
    Tracker tracker;
    PruneRule* conditionless = rule<PruneRule>("P0", nullptr);
    ParsedRules rules(nullptr,
                      new PruneRuleList{conditionless, rule<PruneRule>("P", new TrackedCondition(tracker, "p", true))},
                      nullptr);
    rules.bindVariable("x", "/v");
    EXPECT_EQ(tracker.log, Texts{"substitute p"});
}

// A '$' at the end of a path names the empty variable: a null name taken as
// empty would replace it, a null value taken as empty would erase $x.
TEST(ParsedRulesConfiguration, BindVariableWithNullNameOrValueChangesNothing) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", equals("$x", "/a$"))}, nullptr, nullptr);
    const std::string before = printed(rules);
    rules.bindVariable(nullptr, "/v");
    rules.bindVariable("x", nullptr);
    rules.bindVariable(nullptr, nullptr);
    EXPECT_EQ(printed(rules), before);
    EXPECT_EQ(before, "\texclude if equals($x,/a$)\n\n");
    rules.bindVariable("", "/v");
    EXPECT_EQ(printed(rules), "\texclude if equals($x,/a/v)\n\n");
    rules.bindVariable("x", "/w");
    EXPECT_EQ(printed(rules), "\texclude if equals(/w,/a/v)\n\n");
}

// The pair is made of two paths, so both texts are normalized: the blanks
// around the name and the value go, which a substitution alone would not do
// to the blank between /a and the value.
TEST(ParsedRulesConfiguration, BindVariableNormalizesNameAndValue) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", exists("/a$x"))}, nullptr, nullptr);
    rules.bindVariable(" x ", " /v//w ");
    EXPECT_EQ(printed(rules), "\texclude if exists(/a/v/w)\n\n");
}

TEST(ParsedRulesConfiguration, BindVariableWithNullListsDoesNothing) {
    ParsedRules rules(nullptr, nullptr, nullptr);
    rules.bindVariable("x", "/v");
    EXPECT_EQ(printed(rules), "");
}
