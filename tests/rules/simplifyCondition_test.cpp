// SPDX-License-Identifier: MIT
#include "rules/simplifyCondition.hpp"

#include "DynamicType.hpp"
#include "RulesTesting.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

using namespace testing_rules;

namespace {

using Owned = std::unique_ptr<Expression<bool>>;

Owned simplified(Expression<bool>* condition) {
    return Owned(simplifyCondition(condition));
}

// What a literal result says, or a failure when it is no literal.
std::string literalText(const Owned& condition) {
    if (dynamicType(*condition) != typeid(BooleanLiteral))
        return "not a literal: " + printed(*condition);
    return printed(*condition);
}

} // namespace

TEST(simplifyCondition, NullConditionRaisesBadTypeid) {
    EXPECT_THROW(simplifyCondition(nullptr), std::bad_typeid);
}

TEST(simplifyCondition, LiteralIsReturnedItself) {
    Expression<bool>* yes = truth(true);
    Expression<bool>* no = truth(false);
    const Owned first = simplified(yes);
    const Owned second = simplified(no);
    EXPECT_EQ(first.get(), yes);
    EXPECT_EQ(second.get(), no);
}

TEST(simplifyCondition, ConditionWithoutVariablesBecomesTheLiteralOfItsValue) {
    EXPECT_EQ(literalText(simplified(both(truth(true), negation(truth(false))))), "true");
    EXPECT_EQ(literalText(simplified(equals("/a", "/b"))), "false");
    EXPECT_EQ(literalText(simplified(exists("/"))), "true");
    EXPECT_EQ(literalText(simplified(all({}))), "true");
    EXPECT_EQ(literalText(simplified(any({}))), "false");
}

TEST(simplifyCondition, FoldingEvaluatesOnceAndFreesTheCondition) {
    Tracker tracker;
    const Owned result = simplified(new TrackedCondition(tracker, "t", true, false));
    EXPECT_EQ(literalText(result), "true");
    EXPECT_EQ(tracker.log, std::vector<std::string>{"evaluate t"});
    EXPECT_EQ(tracker.alive, 0);
}

TEST(simplifyCondition, OtherConditionsWithVariablesAreReturnedThemselves) {
    for (Expression<bool>* condition : {exists("$file"), equals("$file", "/a"), in("/a", {"$x"})}) {
        const Owned result = simplified(condition);
        EXPECT_EQ(result.get(), condition);
    }
}

// Only the exact classes are rewritten: a class derived from one of them is
// some other condition, left as it is also where it stands as an operand.
TEST(simplifyCondition, DerivedClassesAreReturnedUnchanged) {
    struct TaggedAnd : MultiAndExpression {};
    struct TaggedNot : NotExpression<bool> {
        using NotExpression<bool>::NotExpression;
    };
    TaggedAnd* tagged = new TaggedAnd;
    tagged->append(exists("$a"));
    tagged->append(truth(true));
    const Owned alone = simplified(tagged);
    EXPECT_EQ(alone.get(), tagged);
    EXPECT_EQ(printed(*alone), "or([exists($a),true])");

    Expression<bool>* negated = new TaggedNot(negation(exists("$a")));
    const Owned doubled = simplified(negated);
    EXPECT_EQ(doubled.get(), negated);
    EXPECT_EQ(printed(*doubled), "not(not(exists($a)))");

    TaggedAnd* operand = new TaggedAnd;
    operand->append(exists("$b"));
    operand->append(exists("$c"));
    const Owned outer = simplified(all({exists("$a"), operand}));
    ASSERT_EQ(dynamicType(*outer), typeid(MultiAndExpression));
    ASSERT_EQ(static_cast<MultiAndExpression&>(*outer).operands().size(), 2u);
    EXPECT_EQ(static_cast<MultiAndExpression&>(*outer).operands()[1], operand);
}

TEST(simplifyCondition, DoubleNegationIsRemoved) {
    Expression<bool>* x = exists("$file");
    const Owned result = simplified(negation(negation(x)));
    EXPECT_EQ(result.get(), x);
    EXPECT_EQ(printed(*result), "exists($file)");
}

TEST(simplifyCondition, TripleNegationLeavesOne) {
    const Owned result = simplified(negation(negation(negation(exists("$file")))));
    EXPECT_EQ(printed(*result), "not(exists($file))");
}

TEST(simplifyCondition, NegationWithVariablesStays) {
    Expression<bool>* x = exists("$file");
    Expression<bool>* node = negation(x);
    const Owned result = simplified(node);
    EXPECT_EQ(result.get(), node);
    EXPECT_EQ(static_cast<NotExpression<bool>&>(*result).operand(), x);
}

TEST(simplifyCondition, NegationOfWhatFoldsToALiteralFoldsToo) {
    EXPECT_EQ(literalText(simplified(negation(all({exists("$file"), truth(false)})))), "true");
    EXPECT_EQ(literalText(simplified(negation(any({exists("$file"), truth(true)})))), "false");
}

TEST(simplifyCondition, NestedAndsBecomeOneNaryAndInOrder) {
    const Owned right = simplified(both(exists("$a"), both(exists("$b"), exists("$c"))));
    EXPECT_EQ(dynamicType(*right), typeid(MultiAndExpression));
    EXPECT_EQ(printed(*right), "or([exists($a),exists($b),exists($c)])");

    const Owned left = simplified(both(both(exists("$a"), exists("$b")), both(exists("$c"), exists("$d"))));
    EXPECT_EQ(dynamicType(*left), typeid(MultiAndExpression));
    EXPECT_EQ(printed(*left), "or([exists($a),exists($b),exists($c),exists($d)])");
}

TEST(simplifyCondition, NestedOrsBecomeOneNaryOrInOrder) {
    const Owned result = simplified(either(either(exists("$a"), exists("$b")), exists("$c")));
    EXPECT_EQ(dynamicType(*result), typeid(MultiOrExpression));
    EXPECT_EQ(printed(*result), "or([exists($a),exists($b),exists($c)])");
}

TEST(simplifyCondition, OperandsOfTheOtherKindAreNotSpliced) {
    const Owned result = simplified(both(exists("$a"), either(exists("$b"), exists("$c"))));
    ASSERT_EQ(dynamicType(*result), typeid(MultiAndExpression));
    const auto& operands = static_cast<MultiAndExpression&>(*result).operands();
    ASSERT_EQ(operands.size(), 2u);
    EXPECT_EQ(dynamicType(*operands[1]), typeid(MultiOrExpression));
    EXPECT_EQ(printed(*result), "or([exists($a),or([exists($b),exists($c)])])");
}

TEST(simplifyCondition, NaryOperandOfTheSameKindIsSpliced) {
    const Owned ands = simplified(all({exists("$a"), all({exists("$b"), exists("$c")}), exists("$d")}));
    EXPECT_EQ(printed(*ands), "or([exists($a),exists($b),exists($c),exists($d)])");
    const Owned ors = simplified(any({any({exists("$a"), exists("$b")}), exists("$c")}));
    EXPECT_EQ(printed(*ors), "or([exists($a),exists($b),exists($c)])");
}

TEST(simplifyCondition, OperandThatSimplifiesIntoTheSameKindIsSpliced) {
    const Owned result = simplified(all({exists("$a"), negation(negation(both(exists("$b"), exists("$c"))))}));
    ASSERT_EQ(dynamicType(*result), typeid(MultiAndExpression));
    EXPECT_EQ(static_cast<MultiAndExpression&>(*result).operands().size(), 3u);
    EXPECT_EQ(printed(*result), "or([exists($a),exists($b),exists($c)])");
}

TEST(simplifyCondition, NegatedOrInAnAndIsDistributed) {
    const Owned result = simplified(all({exists("$x"), negation(any({exists("$a"), exists("$b")})), exists("$y")}));
    ASSERT_EQ(dynamicType(*result), typeid(MultiAndExpression));
    EXPECT_EQ(printed(*result), "or([exists($x),not(exists($a)),not(exists($b)),exists($y)])");
}

TEST(simplifyCondition, NegatedAndInAnOrIsDistributed) {
    const Owned result = simplified(any({negation(all({exists("$a"), exists("$b")})), exists("$x")}));
    ASSERT_EQ(dynamicType(*result), typeid(MultiOrExpression));
    EXPECT_EQ(printed(*result), "or([not(exists($a)),not(exists($b)),exists($x)])");
}

TEST(simplifyCondition, DistributedNegationsAreSimplified) {
    const Owned result = simplified(all({exists("$x"), negation(any({exists("$a"), negation(exists("$b"))}))}));
    EXPECT_EQ(printed(*result), "or([exists($x),not(exists($a)),exists($b)])");
}

TEST(simplifyCondition, NegatedAndInAnAndIsLeftAlone) {
    const Owned result = simplified(all({exists("$x"), negation(all({exists("$a"), exists("$b")}))}));
    EXPECT_EQ(printed(*result), "or([exists($x),not(or([exists($a),exists($b)]))])");
}

TEST(simplifyCondition, DecidingLiteralDecidesTheWhole) {
    EXPECT_EQ(literalText(simplified(all({exists("$a"), truth(false), exists("$b")}))), "false");
    EXPECT_EQ(literalText(simplified(any({exists("$a"), truth(true), exists("$b")}))), "true");
    EXPECT_EQ(literalText(simplified(both(exists("$a"), equals("/x", "/y")))), "false");
    EXPECT_EQ(literalText(simplified(either(equals("/x", "/x"), exists("$a")))), "true");
}

TEST(simplifyCondition, NeutralLiteralsAreDropped) {
    const Owned ands = simplified(all({truth(true), exists("$a"), truth(true), exists("$b"), truth(true)}));
    EXPECT_EQ(printed(*ands), "or([exists($a),exists($b)])");
    const Owned ors = simplified(any({exists("$a"), truth(false), truth(false), exists("$b")}));
    EXPECT_EQ(printed(*ors), "or([exists($a),exists($b)])");
}

TEST(simplifyCondition, NaryAndLeftWithoutOperandsIsTrue) {
    EXPECT_EQ(literalText(simplified(all({any({exists("$a"), truth(true)}), truth(true)}))), "true");
}

TEST(simplifyCondition, NaryOrLeftWithoutOperandsIsFalse) {
    EXPECT_EQ(literalText(simplified(any({all({exists("$a"), truth(false)}), truth(false)}))), "false");
}

TEST(simplifyCondition, NaryNodeLeftWithOneOperandIsReplacedByIt) {
    Expression<bool>* a = exists("$a");
    const Owned ands = simplified(all({truth(true), a}));
    EXPECT_EQ(ands.get(), a);
    Expression<bool>* b = exists("$b");
    const Owned ors = simplified(any({b, truth(false)}));
    EXPECT_EQ(ors.get(), b);
    Expression<bool>* c = exists("$c");
    const Owned single = simplified(both(c, truth(true)));
    EXPECT_EQ(single.get(), c);
}

TEST(simplifyCondition, EveryDiscardedNodeIsFreedAndEveryKeptOneKept) {
    Tracker tracker;
    {
        const Owned result = simplified(both(new TrackedCondition(tracker, "a", true),
                                             all({truth(true),
                                                  negation(any({new TrackedCondition(tracker, "b", true),
                                                                negation(new TrackedCondition(tracker, "c", true))})),
                                                  new TrackedCondition(tracker, "d", true)})));
        EXPECT_EQ(printed(*result), "or([a,not(b),c,d])");
        EXPECT_EQ(tracker.alive, 4);
    }
    EXPECT_EQ(tracker.alive, 0);
    {
        const Owned result = simplified(
            all({new TrackedCondition(tracker, "a", true), truth(false), new TrackedCondition(tracker, "b", true)}));
        EXPECT_EQ(tracker.alive, 0);
    }
}
