// SPDX-License-Identifier: MIT
#include "expr/InExpression.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>

using QuorelScript::Expression;
using QuorelScript::InExpression;
using QuorelScript::PathList;
using Calls = std::vector<std::string>;

namespace {

bool isIn(const char* subject, std::initializer_list<const char*> list) {
    return InExpression(literal(subject), literals(list)).evaluate(bindings({}));
}

TEST(InExpression, Prints) {
    EXPECT_EQ("in($file,[$vantor/toolbox,/usr/include])",
              printed(InExpression(literal("$file"), literals({"$vantor/toolbox", "/usr/include"}))));
    EXPECT_EQ("in(/a,[])", printed(InExpression(literal("/a"), literals({}))));
}

TEST(InExpression, IsAPlainPrefixTest) {
    EXPECT_TRUE(isIn("/a/bc", {"/a/b"}));
    EXPECT_TRUE(isIn("/a/b/c", {"/a/b"}));
    EXPECT_TRUE(isIn("/a/b", {"/a/b"}));
    EXPECT_FALSE(isIn("/a", {"/a/b"}));
    EXPECT_FALSE(isIn("/A/b", {"/a/b"}));
}

TEST(InExpression, EmptyListIsFalse) {
    EXPECT_FALSE(isIn("/a", {}));
}

TEST(InExpression, EmptyElementMatchesEverything) {
    EXPECT_TRUE(isIn("/a", {"/b", ""}));
    EXPECT_TRUE(isIn("", {""}));
}

TEST(InExpression, SubstitutesBeforeTesting) {
    InExpression expression(literal("$file"), literals({"/usr", "$vantor/toolbox"}));
    EXPECT_TRUE(expression.evaluate(bindings({{"file", "/v/toolbox/x.m"}, {"vantor", "/v/"}})));
    EXPECT_FALSE(expression.evaluate(bindings({{"file", "/v/x.m"}, {"vantor", "/v"}})));
}

TEST(InExpression, EvaluatesTheSubjectOnceThenTheListInOrderUpToTheFirstMatch) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/b"));
    list->push_back(fakePath(probe, "B", "/a"));
    list->push_back(fakePath(probe, "C", "/a/b"));
    InExpression expression(fakePath(probe, "S", "/a/b"), list);
    EXPECT_TRUE(expression.evaluate(bindings({})));
    EXPECT_EQ((Calls{"evaluate S", "evaluate A", "evaluate B"}), probe.calls);
}

TEST(InExpression, HasVariables) {
    EXPECT_TRUE(InExpression(literal("/a"), literals({"$x"})).hasVariables());
    EXPECT_TRUE(InExpression(literal("$a"), literals({"/x"})).hasVariables());
    EXPECT_FALSE(InExpression(literal("/a"), literals({"/x", "/y"})).hasVariables());
}

TEST(InExpression, HasVariablesStopsAtTheFirstOperandWithSome) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b")->withVariables());
    list->push_back(fakePath(probe, "C", "/c")->withVariables());
    InExpression expression(fakePath(probe, "S", "/s"), list);
    EXPECT_TRUE(expression.hasVariables());
    EXPECT_EQ((Calls{"hasVariables S", "hasVariables A", "hasVariables B"}), probe.calls);
}

TEST(InExpression, SubstitutesTheSubjectThenTheElementsInOrder) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b"));
    InExpression expression(fakePath(probe, "S", "/s"), list);
    expression.substituteVariables(bindings({{"x", "/y"}}));
    EXPECT_EQ((Calls{"substitute S", "substitute A", "substitute B"}), probe.calls);
}

TEST(InExpression, CloneCopiesSubjectThenElementsIntoAnExactlyReservedList) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b"));
    InExpression expression(fakePath(probe, "S", "/s"), list);
    std::unique_ptr<Expression<bool>> copy(expression.clone());
    EXPECT_EQ((Calls{"clone S", "clone A", "clone B"}), probe.calls);
    EXPECT_EQ("in(S,[A,B])", printed(*copy));
    const PathList& copiedList = static_cast<const InExpression&>(*copy).list();
    EXPECT_EQ(2u, copiedList.capacity());
    EXPECT_EQ(6, probe.alive);
}

TEST(InExpression, DeletesSubjectListAndElements) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    delete new InExpression(fakePath(probe, "S", "/s"), list);
    EXPECT_EQ(0, probe.alive);
}

TEST(InExpression, FailedEvaluationPassesThroughAndReleasesTheSubjectsValue) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/b"));
    list->push_back(fakePath(probe, "B", "/a")->failingToEvaluate());
    list->push_back(fakePath(probe, "C", "/a"));
    InExpression expression(fakePath(probe, "S", "/a/b"), list);
    EXPECT_THROW(expression.evaluate(bindings({})), std::bad_alloc);
    EXPECT_EQ((Calls{"evaluate S", "evaluate A", "evaluate B"}), probe.calls);
}

TEST(InExpression, FailedCloneLeaksNothing) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b")->failingToClone());
    InExpression expression(fakePath(probe, "S", "/s"), list);
    EXPECT_THROW(expression.clone(), std::bad_alloc);
    EXPECT_EQ(3, probe.alive);
}

} // namespace
