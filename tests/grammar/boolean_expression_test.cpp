// SPDX-License-Identifier: MIT
// not, and, or, parentheses: precedence and associativity.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;

TEST(BooleanExpression, AndBindsTighterThanOr) {
    EXPECT_EQ(excluding("or(and(exists(a),exists(b)),exists(c))"), excludeIf("a exists and b exists or c exists"));
    EXPECT_EQ(excluding("or(exists(a),and(exists(b),exists(c)))"), excludeIf("a exists or b exists and c exists"));
}

TEST(BooleanExpression, NotAppliesToOneAtom) {
    EXPECT_EQ(excluding("and(not(exists(a)),exists(b))"), excludeIf("not a exists and b exists"));
}

TEST(BooleanExpression, AndIsRightAssociative) {
    EXPECT_EQ(excluding("and(true,and(false,true))"), excludeIf("true and false and true"));
}

TEST(BooleanExpression, OrIsRightAssociative) {
    EXPECT_EQ(excluding("or(true,or(false,true))"), excludeIf("true or false or true"));
}

TEST(BooleanExpression, ParenthesesGroup) {
    EXPECT_EQ(excluding("and(or(true,false),true)"), excludeIf("(true or false) and true"));
    EXPECT_EQ(excluding("exists(a)"), excludeIf("( \ta exists\t )"));
}

TEST(BooleanExpression, NotNotIsRejectedButNotOfParenthesesIsAccepted) {
    EXPECT_EQ(syntaxError, excludeIf("not not a exists"));
    EXPECT_EQ(excluding("not(not(exists(a)))"), excludeIf("not (not a exists)"));
}

TEST(BooleanExpression, NotOfALiteral) {
    EXPECT_EQ(excluding("not(true)"), excludeIf("not true"));
    EXPECT_EQ(excluding("not(true)"), excludeIf("not(true)"));
}

TEST(BooleanExpression, OperatorsNeedBoundaries) {
    EXPECT_EQ(syntaxError, excludeIf("true andfalse"));
    EXPECT_EQ(syntaxError, excludeIf("true orfalse"));
    EXPECT_EQ(syntaxError, excludeIf("nottrue"));
}

// The boundary in front of "and" and "or" looks at the operator's own first
// letter, so something other than a word character must come between the
// operand and the operator, even after a closing parenthesis.
TEST(BooleanExpression, OperatorMustBeSeparatedFromTheOperandBeforeIt) {
    EXPECT_EQ(syntaxError, excludeIf("(a exists)and true"));
    EXPECT_EQ(syntaxError, excludeIf("(true)or true"));
    EXPECT_EQ(syntaxError, excludeIf("a existsand true"));
    EXPECT_EQ(excluding("and(exists(a),true)"), excludeIf("(a exists) and true"));
}

TEST(BooleanExpression, OperatorMayContinueOnTheNextLine) {
    EXPECT_EQ(excluding("or(true,false)"), printed("exclude if true ...\n   or false\n"));
}

TEST(BooleanExpression, UnbalancedParenthesesAreRejected) {
    EXPECT_EQ(syntaxError, excludeIf("(true"));
    EXPECT_EQ(syntaxError, excludeIf("true)"));
}

TEST(BooleanExpression, OnlyTwoOperandNodesAreBuilt) {
    EXPECT_EQ(excluding("and(exists(a),and(exists(b),and(exists(c),exists(d))))"),
              excludeIf("a exists and b exists and c exists and d exists"));
}

namespace {

// `condition` inside `levels` nested pairs of parentheses.
std::string nestedIn(int levels, const std::string& condition) {
    return std::string(levels, '(') + condition + std::string(levels, ')');
}

} // namespace

TEST(BooleanExpression, ParenthesesNestUpToTheLimit) {
    const int limit = QuorelScript::ParserImpl::nestingLimit;
    EXPECT_EQ(excluding("exists(a)"), excludeIf(nestedIn(limit, "a exists")));
    EXPECT_EQ(excluding("not(and(exists(a),exists(b)))"), excludeIf("not " + nestedIn(limit, "a exists and b exists")));
    EXPECT_EQ(syntaxError, excludeIf(nestedIn(limit + 1, "a exists")));
}

TEST(BooleanExpression, TheParserRecordsWhenTheLimitTurnedParenthesesDown) {
    const int limit = QuorelScript::ParserImpl::nestingLimit;
    QuorelScript::ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "exclude if " + nestedIn(limit + 1, "a exists") + "\n"));
    EXPECT_TRUE(impl.nestedTooDeep());
    EXPECT_TRUE(matchAll(impl, "exclude if " + nestedIn(limit, "a exists") + "\n"));
    EXPECT_FALSE(impl.nestedTooDeep());
    EXPECT_FALSE(matchAll(impl, "exclude if " + nestedIn(limit, "a exists") + " junk\n"));
    EXPECT_FALSE(impl.nestedTooDeep());
}

// The limit is on how many parentheses are open at once, not on how many a
// condition holds.
TEST(BooleanExpression, ParenthesesSideBySideDoNotAddUp) {
    const int limit = QuorelScript::ParserImpl::nestingLimit;
    std::string condition = nestedIn(limit, "a exists");
    for (int i = 0; i < 3; ++i)
        condition += " and " + nestedIn(limit, "a exists");
    EXPECT_EQ(excluding("and(exists(a),and(exists(a),and(exists(a),exists(a))))"), excludeIf(condition));
}
