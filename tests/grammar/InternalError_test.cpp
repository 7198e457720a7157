// SPDX-License-Identifier: MIT
#include "grammar/actions/AttachDebugInfo.hpp"
#include "grammar/actions/DebugPrintObject.hpp"
#include "grammar/actions/PushBinaryOp.hpp"
#include "grammar/actions/PushUnaryOp.hpp"

#include "expr/AndExpression.hpp"
#include "expr/NotExpression.hpp"

#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace QuorelScript;

namespace {
const char* const none = "";
}

TEST(InternalError, Text) {
    EXPECT_STREQ("QuorelScript::Parser encountered an internal error.", ParserImpl::InternalError().what());
}

TEST(InternalError, IsAStandardException) {
    ParserImpl impl;
    EXPECT_THROW(PushUnaryOp<NotExpression<bool>>{impl}(none, none), std::exception);
}

TEST(InternalError, ThrownByAnOperationWithoutItsOperands) {
    ParserImpl impl;
    EXPECT_THROW(PushUnaryOp<NotExpression<bool>>{impl}(none, none), ParserImpl::InternalError);
    EXPECT_THROW(PushBinaryOp<AndExpression>{impl}(none, none), ParserImpl::InternalError);
    EXPECT_THROW(PushUnaryOp<ExcludeRule>{impl}(none, none), ParserImpl::InternalError);
    EXPECT_EQ(nullptr, impl.rules<ExcludeRule>().list());
}

TEST(InternalError, ThrownWhenThereIsNoRuleToName) {
    ParserImpl impl;
    EXPECT_THROW(AttachDebugInfo<IncludeRule>{impl}(none, none), ParserImpl::InternalError);
}

TEST(InternalError, ThrownWhenThereIsNoTreeToShow) {
    ParserImpl impl;
    impl.setDebugVerbose(true);
    GrammarTesting::StreamCapture output;
    DebugPrintObject<Expression<bool>> print(impl, "x");
    EXPECT_THROW(print(none, none), ParserImpl::InternalError);
}
