// SPDX-License-Identifier: MIT
#include "RuleFirstLines.hpp"

#include "SmallStack.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using QuorelScript::Observe::Rule;
using qxqr::ScriptText;
using qxqr::ScriptTexts;

namespace {

// The scripts parsed in order into one rule set, as the tool does.
std::vector<Rule> rulesOf(const ScriptTexts& texts) {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules;
    for (const ScriptText& script : texts) {
        parser.setScriptName(script.name.c_str());
        if (rules)
            parser.parse(rules.get(), script.text.c_str());
        else
            rules.reset(parser.parse(script.text.c_str()));
        EXPECT_TRUE(rules) << script.text;
    }
    return QuorelScript::Observe::rulesOf(*rules);
}

// Each rule's first line and its recorded line, in the order rulesOf
// gives them.
std::vector<std::pair<long, long>> linesOf(const ScriptTexts& texts) {
    const std::vector<Rule> rules = rulesOf(texts);
    const qxqr::FirstLines firstLines = qxqr::firstLinesOf(texts, rules);
    std::vector<std::pair<long, long>> lines;
    for (const Rule& rule : rules) {
        const auto found = firstLines.find(&rule);
        lines.emplace_back(found == firstLines.end() ? 0 : found->second, rule.line);
    }
    return lines;
}

using Lines = std::vector<std::pair<long, long>>;

TEST(RuleFirstLines, RuleOfOneLineBeginsWhereItIsRecorded) {
    EXPECT_EQ((Lines{{2, 2}, {4, 4}}), linesOf({{"s", "% note\nexclude if a exists\n\nprune if b exists\n"}}));
}

// The library counts the line end of a "..." before "or" twice, and
// every later rule's recorded line lies further on: identical rules one
// after the other are still told apart.
TEST(RuleFirstLines, ContinuationBeforeOrCountedTwiceIsNotFollowed) {
    const std::string rule = "exclude if a exists ...\n   or b exists\n";
    EXPECT_EQ((Lines{{1, 3}, {3, 6}, {5, 9}}), linesOf({{"s", rule + rule + rule}}));
}

// A comment whose text ends in "..." goes on over the next line, and a
// "..." before a '%' opens a comment within it that ends on the next line,
// after which the outer one goes on: the rules in them are no rules.
TEST(RuleFirstLines, RuleTextInsideAContinuedCommentIsPassedOver) {
    const std::string text = "% a ...\nexclude if a exists\n"
                             "% b ... % c\nexclude if a exists\nexclude if a exists\n"
                             "exclude if a exists\n";
    EXPECT_EQ((Lines{{5, 5}, {6, 6}}), linesOf({{"s", text}}));
}

// A statement may begin with a line of "..." alone, and a rule may end
// with a comment continued over the next line.
TEST(RuleFirstLines, StatementBeginsAtItsLeadingContinuation) {
    const std::string text = "  ...\nexclude if a exists % why ...\n  exclude if b exists\n"
                             "exclude if c exists\n";
    const std::vector<std::pair<long, long>> lines = linesOf({{"s", text}});
    ASSERT_EQ(2u, lines.size());
    EXPECT_EQ(1, lines[0].first);
    EXPECT_EQ(4, lines[1].first);
}

// Each kind is a list of its own in the rule set; the statements take
// them in the script's order, also when one script is read twice.
TEST(RuleFirstLines, KindsAndScriptsReadTwiceKeepTheirOrder) {
    const std::string text = "include [x] if a exists\nprune if b exists\nexclude if c exists\n";
    const Lines expected = {{3, 3}, {4, 4}, {2, 2}, {3, 3}, {1, 1}, {2, 2}};
    EXPECT_EQ(expected, linesOf({{"s", text}, {"s", "\n" + text}}));
}

// Comments nested a hundred thousand deep take no stack for each.
TEST(RuleFirstLines, DeeplyNestedCommentTakesNoStackForEach) {
    std::string text = "%";
    for (int i = 0; i < 100000; ++i)
        text += " ... %";
    text += std::string(100001, '\n') + "exclude if a exists\n";
    const std::vector<Rule> rules = rulesOf({{"s", text}});
    qxqr::FirstLines firstLines;
    SmallStack::run([&] { firstLines = qxqr::firstLinesOf({{"s", text}}, rules); });
    ASSERT_EQ(1u, firstLines.size());
    EXPECT_EQ(100002, firstLines.begin()->second);
}

} // namespace
