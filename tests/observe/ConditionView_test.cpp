// SPDX-License-Identifier: MIT
#include "observe/ConditionView.hpp"

#include "RulesTesting.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace testing_rules;
using QuorelScript::Observe::Condition;
using QuorelScript::Observe::Node;
using QuorelScript::Observe::NodeKind;

Condition viewOf(Expression<bool>* built) {
    const std::unique_ptr<Expression<bool>> condition(built);
    return QuorelScript::conditionView(*condition);
}

// The condition written back from its view, in the printed form's manner,
// so that a whole tree is compared at once.
std::string shown(const Condition& view, std::size_t index = 0) {
    static const char* const names[] = {"and", "or",     "not",  "all",   "any",  "equals",
                                        "in",  "exists", "true", "false", "path", "other"};
    const Node& node = view.nodes[index];
    if (node.kind == NodeKind::Path || node.kind == NodeKind::Other)
        return node.text;
    std::string text = names[static_cast<int>(node.kind)];
    if (node.operands.empty())
        return text;
    text += "(";
    for (std::size_t i = 0; i < node.operands.size(); ++i) {
        EXPECT_GT(node.operands[i], index) << "an operand comes after its node";
        text += (i ? "," : "") + shown(view, node.operands[i]);
    }
    return text + ")";
}

TEST(ConditionView, ShowsEveryKindOfNode) {
    const Condition view = viewOf(either(both(exists("$dir/x"), negation(equals("$name", "a"))),
                                         all({in("$file", {"/a", "$cwd/"}), any({truth(true), truth(false)})})));
    EXPECT_EQ(shown(view), "or(and(exists($dir/x),not(equals($name,a))),all(in($file,/a,$cwd/),any(true,false)))");
}

TEST(ConditionView, NodesComeInPreorder) {
    const Condition view = viewOf(both(exists("a"), exists("b")));
    ASSERT_EQ(view.nodes.size(), 5u);
    EXPECT_EQ(view.nodes[0].operands, (std::vector<std::size_t>{1, 3}));
    EXPECT_EQ(view.nodes[2].text, "a");
    EXPECT_EQ(view.nodes[4].text, "b");
}

TEST(ConditionView, PathsNameTheirVariablesInOrder) {
    const Condition view = viewOf(equals("$dir/$name$ext", "/fixed/$ not$/x"));
    EXPECT_EQ(view.nodes[1].variables, (std::vector<std::string>{"dir", "name", "ext"}));
    EXPECT_TRUE(view.nodes[2].variables.empty());
}

TEST(ConditionView, AnUnknownNodeIsShownByItsPrintedForm) {
    Tracker tracker;
    const Condition view = viewOf(negation(new TrackedCondition(tracker, "tracked", true)));
    EXPECT_EQ(view.nodes[1].kind, NodeKind::Other);
    EXPECT_EQ(view.nodes[1].text, "tracked");
    EXPECT_TRUE(tracker.log.empty()) << "the view evaluates nothing";
}

TEST(ConditionView, ALongChainIsHeldFlat) {
    Expression<bool>* chain = exists("last");
    for (int i = 0; i < 100000; ++i)
        chain = new OrExpression(exists("x"), chain);
    const Condition view = viewOf(chain);
    EXPECT_EQ(view.nodes.size(), 100000u * 3 + 2);
    EXPECT_EQ(view.nodes.back().text, "last");
}

} // namespace
