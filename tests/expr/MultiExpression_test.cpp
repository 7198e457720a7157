// SPDX-License-Identifier: MIT
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>

using QuorelScript::Expression;
using QuorelScript::MultiAndExpression;
using QuorelScript::MultiOrExpression;
using Calls = std::vector<std::string>;

namespace {

void fill(MultiOrExpression& expression, Probe& probe, std::initializer_list<const char*> names) {
    for (const char* name : names)
        expression.append(fakeCondition(probe, name, false));
}

TEST(MultiExpression, CloneCopiesTheOperandsInOrderIntoAnExactlyReservedVector) {
    Probe probe;
    MultiOrExpression source;
    fill(source, probe, {"A", "B", "C"});
    std::unique_ptr<Expression<bool>> copy(source.clone());
    EXPECT_EQ((Calls{"clone A", "clone B", "clone C"}), probe.calls);
    EXPECT_EQ("or([A,B,C])", printed(*copy));
    const auto& operands = static_cast<const MultiOrExpression&>(*copy).operands();
    EXPECT_EQ(3u, operands.size());
    EXPECT_EQ(3u, operands.capacity());
    EXPECT_EQ(6, probe.alive);
}

TEST(MultiExpression, CloneKeepsTheKindOfNode) {
    Probe probe;
    MultiAndExpression source;
    source.append(fakeCondition(probe, "A", true));
    source.append(fakeCondition(probe, "B", false));
    std::unique_ptr<Expression<bool>> copy(source.clone());
    ASSERT_NE(nullptr, dynamic_cast<MultiAndExpression*>(copy.get()));
    EXPECT_FALSE(copy->evaluate(bindings({})));
}

TEST(MultiExpression, HasVariablesStopsAtTheFirstOperandWithSome) {
    Probe probe;
    MultiOrExpression expression;
    expression.append(fakeCondition(probe, "A", false));
    expression.append(fakeCondition(probe, "B", false)->withVariables());
    expression.append(fakeCondition(probe, "C", false)->withVariables());
    EXPECT_TRUE(expression.hasVariables());
    EXPECT_EQ((Calls{"hasVariables A", "hasVariables B"}), probe.calls);
}

TEST(MultiExpression, EmptyHasNoVariables) {
    EXPECT_FALSE(MultiOrExpression().hasVariables());
    EXPECT_FALSE(MultiAndExpression().hasVariables());
}

TEST(MultiExpression, SubstitutesEveryOperandInOrder) {
    Probe probe;
    MultiOrExpression expression;
    fill(expression, probe, {"A", "B", "C"});
    expression.substituteVariables(bindings({{"x", "/y"}}));
    EXPECT_EQ((Calls{"substitute A", "substitute B", "substitute C"}), probe.calls);
}

TEST(MultiExpression, DeletesEveryOperandInOrderAndSkipsNullEntries) {
    Probe probe;
    MultiOrExpression* expression = new MultiOrExpression;
    fill(*expression, probe, {"A", "B"});
    expression->operands().push_back(nullptr);
    fill(*expression, probe, {"C"});
    delete expression;
    EXPECT_EQ((Calls{"delete A", "delete B", "delete C"}), probe.calls);
    EXPECT_EQ(0, probe.alive);
}

TEST(MultiExpression, FailedCloneLeaksNothing) {
    Probe probe;
    MultiOrExpression source;
    fill(source, probe, {"A", "B"});
    source.append(fakeCondition(probe, "C", false)->failingToClone());
    EXPECT_THROW(source.clone(), std::bad_alloc);
    EXPECT_EQ((Calls{"clone A", "clone B", "clone C", "delete A", "delete B"}), probe.calls);
    EXPECT_EQ(3, probe.alive);
}

} // namespace
