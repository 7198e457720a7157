// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "ForeignRules.hpp"
#include "RulesTesting.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/observe.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace testing_rules;
using QuorelScript::Observe::NodeKind;
using QuorelScript::Observe::RuleKind;
using QuorelScript::Observe::rulesOf;
namespace Observe = QuorelScript::Observe;

std::unique_ptr<Rules> parsed(const char* text) {
    QuorelScript::Parser parser;
    parser.setScriptName("s.rules");
    std::unique_ptr<Rules> rules(parser.parse(text));
    if (!rules)
        throw std::runtime_error(std::string("does not parse: ") + text);
    return rules;
}

TEST(rulesOf, GivesEachKindInOrderWithItsRecordedText) {
    const std::unique_ptr<Rules> rules = parsed("include [$dir/$name.h, x] if $ext == .c\n"
                                                "prune if a exists\n"
                                                "exclude if $ext == .o\n"
                                                "exclude unless b exists\n");
    const std::vector<Observe::Rule> views = rulesOf(*rules);
    ASSERT_EQ(views.size(), 4u);
    EXPECT_EQ(views[0].kind, RuleKind::Exclude);
    EXPECT_EQ(views[0].position, 0u);
    EXPECT_EQ(views[0].recordedText, "s.rules, line 3: \nexclude if $ext == .o");
    EXPECT_EQ(views[0].script, "s.rules");
    EXPECT_EQ(views[0].line, 3);
    EXPECT_EQ(views[0].text, "exclude if $ext == .o");
    EXPECT_EQ(views[0].printed, "exclude if equals($ext,.o)");
    EXPECT_EQ(views[1].position, 1u);
    EXPECT_EQ(views[1].condition.nodes[0].kind, NodeKind::Not);
    EXPECT_EQ(views[2].kind, RuleKind::Prune);
    EXPECT_EQ(views[2].printed, "prune if exists(a)");
    EXPECT_EQ(views[3].kind, RuleKind::Include);
    EXPECT_EQ(views[3].printed, "include [$dir/$name.h,x] if equals($ext,.c)");
    ASSERT_EQ(views[3].paths.size(), 2u);
    EXPECT_EQ(views[3].paths[0].text, "$dir/$name.h");
    EXPECT_EQ(views[3].paths[0].variables, (std::vector<std::string>{"dir", "name"}));
    EXPECT_EQ(views[3].paths[1].kind, NodeKind::Path);
    EXPECT_TRUE(views[0].paths.empty());
}

TEST(rulesOf, GivesOneKindAlone) {
    const std::unique_ptr<Rules> rules = parsed("exclude if a exists\nprune if b exists\nprune if c exists\n");
    const std::vector<Observe::Rule> prunes = rulesOf(*rules, RuleKind::Prune);
    ASSERT_EQ(prunes.size(), 2u);
    EXPECT_EQ(prunes[1].position, 1u);
    EXPECT_EQ(prunes[1].line, 3);
    EXPECT_TRUE(rulesOf(*rules, RuleKind::Include).empty());
}

TEST(rulesOf, ShowsTheRulesAsPrecomputeLeftThem) {
    const std::unique_ptr<Rules> rules =
        parsed("exclude if $file in [$toolbox/]\nexclude if $ext == .o and $name == x\n");
    rules->setVantorRoot("/opt/v");
    rules->precompute();
    const std::vector<Observe::Rule> views = rulesOf(*rules);
    ASSERT_EQ(views.size(), 1u);
    EXPECT_EQ(views[0].line, 1) << "the merged rule keeps the first rule's text";
    const Observe::Condition& condition = views[0].condition;
    EXPECT_EQ(condition.nodes[0].kind, NodeKind::AnyOf);
    EXPECT_EQ(condition.nodes[condition.nodes[0].operands[1]].kind, NodeKind::AllOf);
    EXPECT_EQ(condition.nodes[3].text, "/opt/v/toolbox/");
    EXPECT_TRUE(condition.nodes[3].variables.empty());
}

TEST(rulesOf, ShowsHandBuiltRulesWithoutARecordedHeading) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("by hand", exists("a"))}, nullptr,
                      new IncludeRuleList{includeRule({"p"}, truth(true))});
    const std::vector<Observe::Rule> views = rulesOf(rules);
    ASSERT_EQ(views.size(), 2u);
    EXPECT_EQ(views[0].script, "");
    EXPECT_EQ(views[0].line, 0);
    EXPECT_EQ(views[0].text, "by hand");
    EXPECT_EQ(views[1].condition.nodes[0].kind, NodeKind::True);
}

TEST(rulesOf, ShowsARuleWithoutConditionAsNeverHolding) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", nullptr)}, nullptr,
                      new IncludeRuleList{includeRule({"p"}, nullptr)});
    const std::vector<Observe::Rule> views = rulesOf(rules);
    ASSERT_EQ(views.size(), 2u);
    ASSERT_EQ(views[0].condition.nodes.size(), 1u);
    EXPECT_EQ(views[0].condition.nodes[0].kind, NodeKind::False);
    EXPECT_EQ(views[0].printed, "exclude if false");
    EXPECT_EQ(views[1].condition.nodes[0].kind, NodeKind::False);
    EXPECT_EQ(views[1].paths.size(), 1u);
}

TEST(rulesOf, ChangesNothing) {
    const std::unique_ptr<Rules> rules = parsed("exclude if $file == a\n");
    std::ostringstream before, after;
    rules->print(before);
    rulesOf(*rules);
    rules->print(after);
    EXPECT_EQ(before.str(), after.str());
    EXPECT_TRUE(rules->isExcluded("a", nullptr, nullptr));
}

TEST(rulesOf, ARuleSetOfAnotherMakeHasNoneToShow) {
    ForeignRules rules;
    EXPECT_TRUE(rulesOf(rules).empty());
    EXPECT_TRUE(rulesOf(rules, RuleKind::Exclude).empty());
}

} // namespace
