// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "ForeignRules.hpp"
#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/observe.hpp>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace {

using namespace testing_rules;
using QuorelScript::Observe::Expansion;
using QuorelScript::Observe::none;
using QuorelScript::Observe::QueryTrace;
using QuorelScript::Observe::Question;
using QuorelScript::Observe::traceQuery;

std::unique_ptr<Rules> parsed(const std::string& text) {
    QuorelScript::Parser parser;
    parser.setScriptName("s.rules");
    std::unique_ptr<Rules> rules(parser.parse(text.c_str()));
    if (!rules)
        throw std::runtime_error("does not parse: " + text);
    return rules;
}

TEST(traceQuery, TheFirstRuleThatHoldsDecidesAndTheRestAreNotAsked) {
    const std::unique_ptr<Rules> rules =
        parsed("exclude if $ext == .h\nexclude if $ext == .c\nexclude if $name == main\n");
    const QueryTrace trace = traceQuery(*rules, Question::Excluded, "/src/main.c", nullptr);
    EXPECT_EQ(trace.question, Question::Excluded);
    EXPECT_TRUE(trace.answer);
    EXPECT_EQ(trace.decidingRule, 1u);
    ASSERT_EQ(trace.rules.size(), 3u);
    EXPECT_TRUE(trace.rules[0].evaluated);
    EXPECT_FALSE(trace.rules[0].fired);
    EXPECT_TRUE(trace.rules[1].fired);
    EXPECT_EQ(trace.rules[1].rule.line, 2);
    EXPECT_FALSE(trace.rules[2].evaluated);
    EXPECT_FALSE(trace.rules[2].values[0].evaluated);
    EXPECT_EQ(trace.rules[2].values.size(), trace.rules[2].rule.condition.nodes.size());
}

TEST(traceQuery, LeavesTheLastMatchTextAsTheQueryWould) {
    const std::unique_ptr<Rules> rules = parsed("prune if $ext == .o\nprune if $ext == .c\n");
    traceQuery(*rules, Question::Pruned, "a.c", nullptr);
    EXPECT_EQ(rules->getLastMatchText(), "s.rules, line 2: \nprune if $ext == .c");
    const QueryTrace kept = traceQuery(*rules, Question::Pruned, "a.h", nullptr);
    EXPECT_FALSE(kept.answer);
    EXPECT_EQ(kept.decidingRule, none);
    EXPECT_EQ(rules->getLastMatchText(), "s.rules, line 2: \nprune if $ext == .c") << "a miss keeps the text";
}

TEST(traceQuery, GivesTheQuerysVariables) {
    const std::unique_ptr<Rules> rules = parsed("exclude if $caller == x\ninclude [y] if $caller == x\n");
    rules->setVantorRoot("/opt/v");
    rules->setCwd("/work");
    const QueryTrace trace = traceQuery(*rules, Question::Excluded, "/src/main.c", "/src/app.c");
    std::map<std::string, std::string> variables;
    for (const auto& variable : trace.variables)
        variables[variable.name] = variable.value;
    EXPECT_EQ(variables.size(), 11u);
    EXPECT_EQ(variables["toolbox"], "/opt/v/toolbox");
    EXPECT_EQ(variables["dir"], "/src");
    EXPECT_EQ(variables["caller"], "/src/app.c");
    EXPECT_EQ(variables["cwd"], "/work");
    const QueryTrace includes = traceQuery(*rules, Question::Includes, "/src/main.c", "/src/app.c");
    std::map<std::string, std::string> includeVariables;
    for (const auto& variable : includes.variables)
        includeVariables[variable.name] = variable.value;
    EXPECT_EQ(includeVariables.at("caller"), "") << "include rules are asked without a caller";
}

TEST(traceQuery, AKindWithoutRulesBindsNothing) {
    const std::unique_ptr<Rules> rules = parsed("exclude if a exists\n");
    const QueryTrace trace = traceQuery(*rules, Question::Pruned, "a", nullptr);
    EXPECT_TRUE(trace.variables.empty());
    EXPECT_TRUE(trace.rules.empty());
    EXPECT_FALSE(trace.answer);
}

TEST(traceQuery, AnEmptyListOfRulesStillBindsTheVariables) {
    ParsedRules rules(new ExcludeRuleList, nullptr, nullptr);
    const QueryTrace trace = traceQuery(rules, Question::Excluded, "a", nullptr);
    EXPECT_EQ(trace.variables.size(), 11u);
    EXPECT_TRUE(trace.rules.empty());
    EXPECT_TRUE(traceQuery(rules, Question::Pruned, "a", nullptr).variables.empty());
}

TEST(traceQuery, IncludeRulesAllApplyAndShowWhatEachPathBecame) {
    TempTree tree;
    tree.file("d/one.h");
    tree.file("d/two.h");
    tree.file("d/x.c");
    const std::unique_ptr<Rules> rules = parsed("include [$dir/missing.h, $dir] if $ext == .c\n"
                                                "include [y] if $ext == .h\n"
                                                "include [$dir/*.h] if $name == x\n");
    const std::string file = tree.path("d/x.c");
    const QueryTrace trace = traceQuery(*rules, Question::Includes, file.c_str(), nullptr);
    EXPECT_TRUE(trace.answer);
    EXPECT_EQ(trace.decidingRule, none);
    ASSERT_EQ(trace.rules.size(), 3u);
    ASSERT_EQ(trace.rules[0].included.size(), 2u);
    EXPECT_EQ(trace.rules[0].included[0].text, tree.path("d/missing.h"));
    EXPECT_EQ(trace.rules[0].included[0].expansion, Expansion::Plain);
    EXPECT_EQ(trace.rules[0].included[0].files, (std::vector<std::string>{tree.path("d/missing.h")}));
    EXPECT_EQ(trace.rules[0].included[1].expansion, Expansion::Directory);
    EXPECT_EQ(trace.rules[0].included[1].files,
              (std::vector<std::string>{tree.path("d/one.h"), tree.path("d/two.h"), tree.path("d/x.c")}));
    EXPECT_TRUE(trace.rules[1].evaluated);
    EXPECT_FALSE(trace.rules[1].fired);
    EXPECT_TRUE(trace.rules[1].included.empty());
    EXPECT_EQ(trace.rules[2].included[0].expansion, Expansion::Pattern);
    EXPECT_EQ(trace.rules[2].included[0].files, (std::vector<std::string>{tree.path("d/one.h"), tree.path("d/two.h")}));
}

TEST(traceQuery, FollowsTheRulesAsPrecomputeLeftThem) {
    const std::unique_ptr<Rules> rules = parsed("exclude if $file in [$toolbox/]\nexclude if $ext == .o\n");
    rules->setVantorRoot("/opt/v");
    rules->precompute();
    const QueryTrace trace = traceQuery(*rules, Question::Excluded, "/w/a.o", nullptr);
    ASSERT_EQ(trace.rules.size(), 1u);
    EXPECT_TRUE(trace.answer);
    EXPECT_EQ(trace.rules[0].rule.line, 1) << "the merged rule keeps the first rule's text";
    EXPECT_EQ(rules->getLastMatchText(), "s.rules, line 1: \nexclude if $file in [$toolbox/]");
}

TEST(traceQuery, ARuleWithoutConditionIsAskedAndNeverHolds) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E0", nullptr), rule<ExcludeRule>("E", truth(true))},
                      nullptr, new IncludeRuleList{includeRule({"p"}, nullptr)});
    const QueryTrace excluded = traceQuery(rules, Question::Excluded, "a", nullptr);
    ASSERT_EQ(excluded.rules.size(), 2u);
    EXPECT_TRUE(excluded.rules[0].evaluated);
    EXPECT_FALSE(excluded.rules[0].fired);
    ASSERT_EQ(excluded.rules[0].values.size(), 1u);
    EXPECT_TRUE(excluded.rules[0].values[0].evaluated);
    EXPECT_FALSE(excluded.rules[0].values[0].value);
    EXPECT_EQ(excluded.decidingRule, 1u);
    const QueryTrace includes = traceQuery(rules, Question::Includes, "a", nullptr);
    ASSERT_EQ(includes.rules.size(), 1u);
    EXPECT_FALSE(includes.answer);
    EXPECT_TRUE(includes.rules[0].included.empty());
}

TEST(traceQuery, ARuleSetOfAnotherMakeGivesAnEmptyTrace) {
    ForeignRules other;
    const QueryTrace trace = traceQuery(other, Question::Excluded, "a", nullptr);
    EXPECT_TRUE(trace.rules.empty());
    EXPECT_FALSE(trace.answer);
}

TEST(traceQuery, NullArgumentsAreEmptyPaths) {
    const std::unique_ptr<Rules> rules = parsed("exclude if $file == x\n"
                                                "exclude if $caller in [$file]\n");
    const QueryTrace trace = traceQuery(*rules, Question::Excluded, nullptr, nullptr);
    EXPECT_TRUE(trace.answer);
    EXPECT_EQ(trace.decidingRule, 1u);
}

} // namespace
