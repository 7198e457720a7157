// SPDX-License-Identifier: MIT
#include "expr/OwnedPointers.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace QuorelScript;

namespace {

// Records its own deletion by name, so that a test sees what was deleted, in
// which order, and what is still alive.
class Recorded {
public:
    Recorded(std::vector<std::string>& deleted, const char* name) : deleted_(deleted), name_(name) {}
    Recorded(const Recorded&) = delete;
    Recorded& operator=(const Recorded&) = delete;
    ~Recorded() { deleted_.push_back(name_); }

private:
    std::vector<std::string>& deleted_;
    std::string name_;
};

using RecordedList = std::vector<Recorded*>;

// Built around two parts that it owns; its constructor throws when told to,
// after it has stored them, as a failing member would.
struct Pair {
    Pair(Recorded* first, Recorded* second, bool fails = false) : first(first), second(second) {
        if (fails)
            throw std::runtime_error("no pair");
    }
    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;
    ~Pair() {
        delete first;
        delete second;
    }
    Recorded* first;
    Recorded* second;
};

// One that cannot be built at all.
struct FailingPair : Pair {
    FailingPair(Recorded* first, Recorded* second) : Pair(first, second, true) {}
};

} // namespace

// The parse actions and the rewrites pass single nodes on as plain std::unique_ptr.
static_assert(std::is_same<OwnedPointer<Recorded>, std::unique_ptr<Recorded>>::value,
              "a single object is owned as by std::unique_ptr");
static_assert(sizeof(OwnedPointer<RecordedList>) == sizeof(RecordedList*), "an owned list is one plain pointer");

TEST(OwnedPointers, DeletesAnObjectAndAllowsNull) {
    std::vector<std::string> deleted;
    deleteOwned(new Recorded(deleted, "a"));
    deleteOwned(static_cast<Recorded*>(nullptr));
    EXPECT_EQ(std::vector<std::string>{"a"}, deleted);
}

TEST(OwnedPointers, DeletesAListWithItsElementsInOrderSkippingNull) {
    std::vector<std::string> deleted;
    RecordedList* list = new RecordedList{new Recorded(deleted, "a"), nullptr, new Recorded(deleted, "b")};
    deleteOwned(list);
    deleteOwned(static_cast<RecordedList*>(nullptr));
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), deleted);
}

TEST(OwnedPointers, DeletesAListOfListsDownToTheElements) {
    std::vector<std::string> deleted;
    std::vector<RecordedList*> lists{new RecordedList{new Recorded(deleted, "a"), new Recorded(deleted, "b")},
                                     new RecordedList{new Recorded(deleted, "c")}};
    deleteEach(lists);
    EXPECT_EQ((std::vector<std::string>{"a", "b", "c"}), deleted);
}

TEST(OwnedPointers, DeleteEachLeavesTheVectorAsItWas) {
    std::vector<std::string> deleted;
    RecordedList list{new Recorded(deleted, "a"), new Recorded(deleted, "b")};
    deleteEach(list);
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), deleted);
    EXPECT_EQ(2u, list.size());
}

TEST(OwnedPointers, AnOwnedListGoesWithItsElements) {
    std::vector<std::string> deleted;
    {
        OwnedPointer<RecordedList> list(new RecordedList);
        pushOwned(*list, new Recorded(deleted, "a"));
        pushOwned(*list, new Recorded(deleted, "b"));
        EXPECT_TRUE(deleted.empty());
    }
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), deleted);
}

TEST(OwnedPointers, PushAppendsInOrder) {
    std::vector<std::string> deleted;
    RecordedList list;
    Recorded* a = new Recorded(deleted, "a");
    Recorded* b = new Recorded(deleted, "b");
    pushOwned(list, a);
    pushOwned(list, b);
    EXPECT_EQ((RecordedList{a, b}), list);
    deleteEach(list);
}

TEST(OwnedPointers, TheFirstPushCreatesTheList) {
    std::vector<std::string> deleted;
    RecordedList* list = nullptr;
    Recorded* a = new Recorded(deleted, "a");
    pushOwnedCreatingList(list, a);
    ASSERT_NE(nullptr, list);
    RecordedList* const created = list;
    Recorded* b = new Recorded(deleted, "b");
    pushOwnedCreatingList(list, b);
    EXPECT_EQ(created, list);
    EXPECT_EQ((RecordedList{a, b}), *list);
    deleteOwned(list);
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), deleted);
}

TEST(OwnedPointers, NewOwnerHoldsThePartsInOrderAndANullPartStaysNull) {
    std::vector<std::string> deleted;
    Recorded* a = new Recorded(deleted, "a");
    std::unique_ptr<Pair> pair(newOwner<Pair>(OwnedPointer<Recorded>(a), OwnedPointer<Recorded>()));
    EXPECT_EQ(a, pair->first);
    EXPECT_EQ(nullptr, pair->second);
    EXPECT_TRUE(deleted.empty());
    pair.reset();
    EXPECT_EQ(std::vector<std::string>{"a"}, deleted);
}

// A constructor that throws has not taken the parts, which are deleted once.
TEST(OwnedPointers, NewOwnerDeletesThePartsWhenBuildingFails) {
    std::vector<std::string> deleted;
    OwnedPointer<Recorded> a(new Recorded(deleted, "a"));
    OwnedPointer<Recorded> b(new Recorded(deleted, "b"));
    EXPECT_THROW(newOwner<FailingPair>(std::move(a), std::move(b)), std::runtime_error);
    ASSERT_EQ(2u, deleted.size());
    EXPECT_EQ(1, std::count(deleted.begin(), deleted.end(), "a"));
    EXPECT_EQ(1, std::count(deleted.begin(), deleted.end(), "b"));
}
