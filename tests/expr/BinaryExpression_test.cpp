// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"
#include "expr/OrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>

using QuorelScript::AndExpression;
using QuorelScript::Expression;
using QuorelScript::OrExpression;
using Calls = std::vector<std::string>;

namespace {

TEST(BinaryExpression, CloneCopiesTheLeftSubtreeCompletelyBeforeTheRightOne) {
    Probe probe;
    AndExpression tree(new OrExpression(fakeCondition(probe, "A", true), fakeCondition(probe, "B", true)),
                       fakeCondition(probe, "C", true));
    std::unique_ptr<Expression<bool>> copy(tree.clone());
    EXPECT_EQ((Calls{"clone A", "clone B", "clone C"}), probe.calls);
    EXPECT_EQ("and(or(A,B),C)", printed(*copy));
    EXPECT_EQ(6, probe.alive);
}

TEST(BinaryExpression, SubstitutesLeftThenRight) {
    Probe probe;
    AndExpression tree(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true));
    tree.substituteVariables(bindings({{"x", "/y"}}));
    EXPECT_EQ((Calls{"substitute L", "substitute R"}), probe.calls);
}

TEST(BinaryExpression, HasVariablesAsksTheRightOperandOnlyWhenTheLeftHasNone) {
    Probe probe;
    AndExpression leftHasSome(fakeCondition(probe, "L", true)->withVariables(), fakeCondition(probe, "R", true));
    EXPECT_TRUE(leftHasSome.hasVariables());
    EXPECT_EQ(Calls{"hasVariables L"}, probe.calls);

    probe.calls.clear();
    AndExpression rightHasSome(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true)->withVariables());
    EXPECT_TRUE(rightHasSome.hasVariables());
    EXPECT_EQ((Calls{"hasVariables L", "hasVariables R"}), probe.calls);

    AndExpression none(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true));
    EXPECT_FALSE(none.hasVariables());
}

TEST(BinaryExpression, DeletesTheRightOperandThenTheLeftOne) {
    Probe probe;
    delete new AndExpression(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true));
    EXPECT_EQ((Calls{"delete R", "delete L"}), probe.calls);
    EXPECT_EQ(0, probe.alive);
}

TEST(BinaryExpression, ToleratesAReleasedOperand) {
    Probe probe;
    std::unique_ptr<Expression<bool>> left;
    {
        AndExpression tree(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true));
        left.reset(tree.releaseLeft());
    }
    EXPECT_EQ(1, probe.alive);
}

TEST(BinaryExpression, FailedCloneLeaksNothing) {
    Probe probe;
    AndExpression tree(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true)->failingToClone());
    EXPECT_THROW(tree.clone(), std::bad_alloc);
    // The left clone, made first, is deleted on the way out.
    EXPECT_EQ((Calls{"clone L", "clone R", "delete L"}), probe.calls);
    EXPECT_EQ(2, probe.alive);
}

TEST(BinaryExpression, FailedEvaluationPassesThrough) {
    Probe probe;
    AndExpression tree(fakeCondition(probe, "L", true), fakeCondition(probe, "R", true)->failingToEvaluate());
    EXPECT_THROW(tree.evaluate(bindings({})), std::bad_alloc);
    EXPECT_EQ((Calls{"evaluate L", "evaluate R"}), probe.calls);
}

} // namespace
