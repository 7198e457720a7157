// SPDX-License-Identifier: MIT
// The push actions, driven directly on a parser's stacks.
#include "grammar/actions/AttachDebugInfo.hpp"
#include "grammar/actions/ExpressionListAppend.hpp"
#include "grammar/actions/ExpressionListCreate.hpp"
#include "grammar/actions/PushBinaryOp.hpp"
#include "grammar/actions/PushClone.hpp"
#include "grammar/actions/PushNew.hpp"
#include "grammar/actions/PushUnaryOp.hpp"

#include "expr/BooleanLiteral.hpp"
#include "expr/InExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/PathLiteral.hpp"
#include "grammar/GrammarConstants.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>

using namespace QuorelScript;

namespace {

const char* const none = "";

void pushPath(ParserImpl& impl, const char* text) {
    PushNew<PathLiteral>{impl}(text, text + std::strlen(text));
}

std::string printedTop(ParserImpl& impl) {
    std::ostringstream out;
    impl.stack<Expression<bool>>().top().print(out);
    return out.str();
}

} // namespace

TEST(OperandActions, ListCreateAndAppendBuildOneListInOrder) {
    ParserImpl impl;
    pushPath(impl, "x");
    pushPath(impl, "a");
    PushUnaryOp<ExpressionListCreate<Path>>{impl}(none, none);
    pushPath(impl, "b");
    PushBinaryOp<ExpressionListAppend<Path>>{impl}(none, none);
    ASSERT_EQ(1u, impl.stack<PathList>().size());
    EXPECT_EQ(1u, impl.stack<Expression<Path>>().size());
    PushBinaryOp<InExpression>{impl}(none, none);
    EXPECT_EQ("in(x,[a,b])", printedTop(impl));
    EXPECT_TRUE(impl.stack<PathList>().empty());
    EXPECT_TRUE(impl.stack<Expression<Path>>().empty());
}

TEST(OperandActions, BinaryOpTakesTheEarlierOperandAsLeft) {
    ParserImpl impl;
    pushPath(impl, "left");
    pushPath(impl, "right");
    PushBinaryOp<EqualsExpression<Path>>{impl}(none, none);
    EXPECT_EQ("equals(left,right)", printedTop(impl));
}

TEST(OperandActions, CloneLeavesTheConstantAlone) {
    ParserImpl impl;
    PushClone<BooleanLiteral>{impl, GrammarConstants::falseLiteral}(none, none);
    PushUnaryOp<NotExpression<bool>>{impl}(none, none);
    EXPECT_EQ("not(false)", printedTop(impl));
    EXPECT_FALSE(GrammarConstants::falseLiteral.value());
    EXPECT_NE(&GrammarConstants::falseLiteral, &impl.stack<Expression<bool>>().top());
}

TEST(OperandActions, RuleTakesTheConditionAndStartsItsList) {
    ParserImpl impl;
    EXPECT_EQ(nullptr, impl.rules<ExcludeRule>().list());
    PushClone<BooleanLiteral>{impl, GrammarConstants::trueLiteral}(none, none);
    PushUnaryOp<ExcludeRule>{impl}(none, none);
    ASSERT_NE(nullptr, impl.rules<ExcludeRule>().list());
    ASSERT_EQ(1u, impl.rules<ExcludeRule>().list()->size());
    EXPECT_EQ("<anonymous rule>", impl.rules<ExcludeRule>().last().debugInfo);
    EXPECT_TRUE(impl.stack<Expression<bool>>().empty());
    EXPECT_EQ(nullptr, impl.rules<PruneRule>().list());
    EXPECT_EQ(nullptr, impl.rules<IncludeRule>().list());
}

TEST(OperandActions, IncludeRuleTakesTheListAndTheCondition) {
    ParserImpl impl;
    pushPath(impl, "a");
    PushUnaryOp<ExpressionListCreate<Path>>{impl}(none, none);
    PushClone<BooleanLiteral>{impl, GrammarConstants::trueLiteral}(none, none);
    PushBinaryOp<IncludeRule>{impl}(none, none);
    const IncludeRule& rule = impl.rules<IncludeRule>().last();
    std::ostringstream out;
    printPathList(out, *rule.paths) << ' ';
    rule.condition->print(out);
    EXPECT_EQ("[a] true", out.str());
    EXPECT_TRUE(impl.stack<PathList>().empty());
}

TEST(OperandActions, DebugInfoNamesTheLastRuleWithScriptLineAndText) {
    ParserImpl impl;
    impl.setScriptName("rules.qr");
    for (int i = 0; i < 2; ++i) {
        PushClone<BooleanLiteral>{impl, GrammarConstants::trueLiteral}(none, none);
        PushUnaryOp<PruneRule>{impl}(none, none);
    }
    impl.countLine();
    const std::string statement = " prune if true";
    AttachDebugInfo<PruneRule>{impl}(statement.begin(), statement.end());
    EXPECT_EQ("<anonymous rule>", impl.rules<PruneRule>().list()->front()->debugInfo);
    EXPECT_EQ("rules.qr, line 1: \n prune if true", impl.rules<PruneRule>().last().debugInfo);
}
