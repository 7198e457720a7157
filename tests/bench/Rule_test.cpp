// SPDX-License-Identifier: MIT
#include "Rule.hpp"

#include <gtest/gtest.h>

using namespace qxqr::bench;

TEST(Rule, ExcludeRuleJoinsItsTestsWithAnd) {
    Rule rule{RuleKind::exclude,
              {{FileVariable::dir, Comparison::equals, {"$cwd/src"}},
               {FileVariable::name, Comparison::equals, {"main"}, true}},
              {},
              ""};
    EXPECT_EQ("exclude if $dir == $cwd/src and not $name == main", statementText(rule));
}

TEST(Rule, PrefixListIsBracketed) {
    Rule rule{RuleKind::prune, {{FileVariable::file, Comparison::startsWith, {"$vantor/a/", "/usr/b/"}}}, {}, ""};
    EXPECT_EQ("prune if $file in [$vantor/a/, /usr/b/]", statementText(rule));
}

TEST(Rule, IncludeRuleListsItsPathsFirst) {
    Rule rule{RuleKind::include,
              {{FileVariable::ext, Comparison::equals, {".c"}}},
              {"$dir/$name.h", "$cwd/include/$name.h"},
              ""};
    EXPECT_EQ("include [$dir/$name.h, $cwd/include/$name.h] if $ext == .c", statementText(rule));
}

TEST(Rule, ScriptPutsACommentBeforeEveryTenthRule) {
    Rule rule{RuleKind::exclude, {{FileVariable::ext, Comparison::equals, {".o"}}}, {}, ""};
    std::string expected = "% rules 1 and on\n";
    for (int line = 0; line < 10; ++line)
        expected += "exclude if $ext == .o\n";
    expected += "% rules 11 and on\nexclude if $ext == .o\n";
    EXPECT_EQ(expected, scriptText(std::vector<Rule>(11, rule)));
}
