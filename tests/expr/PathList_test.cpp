// SPDX-License-Identifier: MIT
#include "expr/PathList.hpp"

#include "ExprTesting.hpp"
#include "FakeExpression.hpp"

#include <gtest/gtest.h>

#include <new>
#include <sstream>

using QuorelScript::OwnedPathList;
using QuorelScript::PathList;

namespace {

std::string printedList(const PathList& list) {
    std::ostringstream out;
    QuorelScript::printPathList(out, list);
    return out.str();
}

TEST(PathList, Prints) {
    OwnedPathList list(literals({"/a", "$b/c"}));
    EXPECT_EQ("[/a,$b/c]", printedList(*list));
    EXPECT_EQ("[]", printedList(PathList()));
}

TEST(PathList, CloneCopiesInOrder) {
    Probe probe;
    OwnedPathList list(new PathList);
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b"));
    OwnedPathList copy(QuorelScript::clonePathList(*list));
    EXPECT_EQ((std::vector<std::string>{"clone A", "clone B"}), probe.calls);
    EXPECT_EQ("[A,B]", printedList(*copy));
    EXPECT_EQ(2u, copy->capacity());
}

TEST(PathList, DeletesItsElements) {
    Probe probe;
    PathList* list = new PathList;
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b"));
    QuorelScript::deletePathList(list);
    QuorelScript::deletePathList(nullptr);
    EXPECT_EQ(0, probe.alive);
}

TEST(PathList, FailedCloneLeaksNothing) {
    Probe probe;
    OwnedPathList list(new PathList);
    list->push_back(fakePath(probe, "A", "/a"));
    list->push_back(fakePath(probe, "B", "/b")->failingToClone());
    EXPECT_THROW(QuorelScript::clonePathList(*list), std::bad_alloc);
    EXPECT_EQ(2, probe.alive);
}

} // namespace
