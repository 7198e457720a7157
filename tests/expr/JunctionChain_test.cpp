// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"
#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

using QuorelScript::AndExpression;
using QuorelScript::BooleanLiteral;
using QuorelScript::Expression;
using QuorelScript::NotExpression;
using QuorelScript::OrExpression;
using Calls = std::vector<std::string>;

namespace {

// A chain as a script writes it: operands t0, t1, ... with their values and
// the operator before each but the first, joined from the right.
struct ChainModel {
    std::vector<bool> values;
    std::vector<bool> ands; // ands[i]: the operator before t(i+1) is "and"

    static std::string name(std::size_t i) { return "t" + std::to_string(i); }

    // The tree of fakes the parser would build.
    Expression<bool>* build(Probe& probe) const {
        std::unique_ptr<Expression<bool>> tree(fakeCondition(probe, name(values.size() - 1), values.back()));
        for (std::size_t i = values.size() - 1; i-- > 0;) {
            Expression<bool>* left = fakeCondition(probe, name(i), values[i]);
            tree.reset(ands[i] ? static_cast<Expression<bool>*>(new AndExpression(left, tree.release()))
                               : new OrExpression(left, tree.release()));
        }
        return tree.release();
    }

    // What a plain recursive evaluation from operand i evaluates, and yields.
    bool evaluate(std::size_t i, Calls& calls) const {
        calls.push_back("evaluate " + name(i));
        if (i + 1 == values.size())
            return values[i];
        if (values[i] == !ands[i])
            return values[i];
        return evaluate(i + 1, calls);
    }

    std::string print(std::size_t i) const {
        if (i + 1 == values.size())
            return name(i);
        return (ands[i] ? "and(" : "or(") + name(i) + "," + print(i + 1) + ")";
    }

    static ChainModel random(std::mt19937& random, std::size_t length) {
        ChainModel model;
        for (std::size_t i = 0; i < length; ++i) {
            model.values.push_back(random() % 2 == 0);
            if (i + 1 < length)
                model.ands.push_back(random() % 2 == 0);
        }
        return model;
    }
};

TEST(JunctionChain, EvaluatesAndPrintsLikeThePlainRecursion) {
    std::mt19937 random(31337);
    for (int round = 0; round < 500; ++round) {
        const ChainModel model = ChainModel::random(random, 1 + random() % 8);
        Probe probe;
        std::unique_ptr<Expression<bool>> tree(model.build(probe));
        Calls expected;
        const bool value = model.evaluate(0, expected);
        EXPECT_EQ(value, tree->evaluate(bindings({})));
        EXPECT_EQ(expected, probe.calls);
        EXPECT_EQ(model.print(0), printed(*tree));
    }
}

TEST(JunctionChain, DeletesFromTheLastOperandUp) {
    Probe probe;
    std::mt19937 random(7);
    const ChainModel model = ChainModel::random(random, 5);
    delete model.build(probe);
    EXPECT_EQ((Calls{"delete t4", "delete t3", "delete t2", "delete t1", "delete t0"}), probe.calls);
    EXPECT_EQ(0, probe.alive);
}

// A left operand that is a chain itself is deleted, right side first, when
// its link is.
TEST(JunctionChain, DeletesALeftChainWithItsLink) {
    Probe probe;
    delete new OrExpression(new AndExpression(fakeCondition(probe, "a", true), fakeCondition(probe, "b", true)),
                            new AndExpression(fakeCondition(probe, "c", true), fakeCondition(probe, "d", true)));
    EXPECT_EQ((Calls{"delete d", "delete c", "delete b", "delete a"}), probe.calls);
}

TEST(JunctionChain, ClonesLeftOperandsFromTheTopThenTheLastOne) {
    Probe probe;
    std::mt19937 random(11);
    const ChainModel model = ChainModel::random(random, 4);
    std::unique_ptr<Expression<bool>> tree(model.build(probe));
    std::unique_ptr<Expression<bool>> copy(tree->clone());
    EXPECT_EQ((Calls{"clone t0", "clone t1", "clone t2", "clone t3"}), probe.calls);
    EXPECT_EQ(printed(*tree), printed(*copy));
    EXPECT_EQ(8, probe.alive);
    copy.reset();
    EXPECT_EQ(4, probe.alive);
}

TEST(JunctionChain, AFailedCloneDeletesWhatWasCopied) {
    for (int failing = 0; failing < 4; ++failing) {
        Probe probe;
        std::vector<FakeExpression<bool>*> operands;
        for (int i = 0; i < 4; ++i)
            operands.push_back(fakeCondition(probe, "t" + std::to_string(i), true));
        operands[failing]->failingToClone();
        AndExpression tree(operands[0], new OrExpression(operands[1], new AndExpression(operands[2], operands[3])));
        EXPECT_THROW(tree.clone(), std::bad_alloc);
        EXPECT_EQ(4, probe.alive) << failing;
    }
}

TEST(JunctionChain, AsksForVariablesUpToTheFirstOperandThatHasSome) {
    Probe probe;
    OrExpression tree(
        fakeCondition(probe, "a", true),
        new AndExpression(fakeCondition(probe, "b", true)->withVariables(), fakeCondition(probe, "c", true)));
    EXPECT_TRUE(tree.hasVariables());
    EXPECT_EQ((Calls{"hasVariables a", "hasVariables b"}), probe.calls);

    probe.calls.clear();
    AndExpression none(fakeCondition(probe, "d", true),
                       new OrExpression(fakeCondition(probe, "e", true), fakeCondition(probe, "f", true)));
    EXPECT_FALSE(none.hasVariables());
    EXPECT_EQ((Calls{"hasVariables d", "hasVariables e", "hasVariables f"}), probe.calls);
}

TEST(JunctionChain, SubstitutesEveryOperandInOrder) {
    Probe probe;
    AndExpression tree(fakeCondition(probe, "a", true),
                       new OrExpression(fakeCondition(probe, "b", true), fakeCondition(probe, "c", true)));
    tree.substituteVariables(bindings({{"x", "/y"}}));
    EXPECT_EQ((Calls{"substitute a", "substitute b", "substitute c"}), probe.calls);
}

// Another kind of node ends the chain; below it, a new chain begins.
TEST(JunctionChain, AnotherNodeEndsTheChain) {
    AndExpression tree(new BooleanLiteral(true),
                       new NotExpression<bool>(new OrExpression(new BooleanLiteral(false), new BooleanLiteral(false))));
    EXPECT_EQ("and(true,not(or(false,false)))", printed(tree));
    EXPECT_TRUE(tree.evaluate(bindings({})));
}

// A million operands, handled on a stack far too small for a million nested
// calls.
TEST(JunctionChain, TheStackDoesNotGrowWithTheChain) {
    const int operands = 1000000;
    std::unique_ptr<Expression<bool>> tree(new BooleanLiteral(true));
    for (int i = 1; i < operands; ++i) {
        Expression<bool>* left = new BooleanLiteral(i % 2 == 0);
        tree.reset(i % 3 == 0 ? static_cast<Expression<bool>*>(new OrExpression(left, tree.release()))
                              : new AndExpression(left, tree.release()));
    }
    std::string text;
    bool value = false;
    SmallStack::run(
        [&] {
            value = tree->evaluate(bindings({}));
            EXPECT_FALSE(tree->hasVariables());
            tree->substituteVariables(bindings({{"x", "/y"}}));
            std::unique_ptr<Expression<bool>> copy(tree->clone());
            text = printed(*copy);
            copy.reset();
            tree.reset();
        },
        64 * 1024);
    EXPECT_EQ("or(false,and(true,", text.substr(0, 18));
    EXPECT_EQ(std::string(operands - 1, ')'), text.substr(text.size() - (operands - 1)));
    EXPECT_FALSE(value);
}

} // namespace
