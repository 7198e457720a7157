// SPDX-License-Identifier: MIT
// Handing a pointer over takes its ownership even when the allocation that
// the hand-over needs fails: the element is deleted, the vector keeps what it
// had, and nothing stays allocated.
#include "expr/OwnedPointers.hpp"

#include "ReplacedAllocator.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

using namespace QuorelScript;

namespace {

// Counts the live instances.
struct Counted {
    Counted() { ++alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }
    static int alive;
};
int Counted::alive = 0;

using CountedList = std::vector<Counted*>;

// Owns one part.
struct Holder {
    explicit Holder(Counted* part) : part(part) {}
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { delete part; }
    Counted* part;
};

// Lets the allocations of one test fail from a point on, and lifts the limit
// however the test ends.
class FailingAllocations : public testing::Test {
protected:
    void SetUp() override { heldBefore_ = ReplacedAllocator::held(); }
    void TearDown() override {
        ReplacedAllocator::failAfter(-1);
        EXPECT_EQ(0, Counted::alive);
        EXPECT_EQ(heldBefore_, ReplacedAllocator::held()) << "something leaked";
    }

private:
    std::size_t heldBefore_ = 0;
};

} // namespace

TEST_F(FailingAllocations, PushThatCannotGrowTheVectorDeletesTheElement) {
    CountedList list;
    list.reserve(1);
    pushOwned(list, new Counted);
    ASSERT_EQ(list.capacity(), list.size());
    Counted* element = new Counted;
    ReplacedAllocator::failAfter(0);
    EXPECT_THROW(pushOwned(list, element), std::bad_alloc);
    ReplacedAllocator::failAfter(-1);
    EXPECT_EQ(1, Counted::alive);
    EXPECT_EQ(1u, list.size());
    deleteEach(list);
}

// The first allocation makes the list, the second its room for the element.
TEST_F(FailingAllocations, PushThatCannotCreateOrGrowANewListDeletesTheElement) {
    for (long allowed : {0L, 1L}) {
        CountedList* list = nullptr;
        Counted* element = new Counted;
        ReplacedAllocator::failAfter(allowed);
        EXPECT_THROW(pushOwnedCreatingList(list, element), std::bad_alloc);
        ReplacedAllocator::failAfter(-1);
        EXPECT_EQ(0, Counted::alive) << allowed;
        EXPECT_EQ(allowed == 0, list == nullptr) << allowed;
        EXPECT_TRUE(list == nullptr || list->empty()) << allowed;
        deleteOwned(list);
    }
}

TEST_F(FailingAllocations, NewOwnerThatCannotBeAllocatedDeletesItsPart) {
    OwnedPointer<Counted> part(new Counted);
    ReplacedAllocator::failAfter(0);
    EXPECT_THROW(newOwner<Holder>(std::move(part)), std::bad_alloc);
    ReplacedAllocator::failAfter(-1);
    EXPECT_EQ(0, Counted::alive);
}

// Every allocation of filling a list fails in turn: whenever a push fails,
// exactly the elements in the list are alive.
TEST_F(FailingAllocations, FillingAListFailsAtEachAllocationWithoutLeaking) {
    int failedRuns = 0;
    for (long allowed = 0;; ++allowed) {
        CountedList* list = nullptr;
        ReplacedAllocator::failAfter(allowed);
        try {
            for (int i = 0; i < 5; ++i)
                pushOwnedCreatingList(list, new Counted);
        } catch (const std::bad_alloc&) {
            ReplacedAllocator::failAfter(-1);
            ++failedRuns;
            EXPECT_EQ(list == nullptr ? 0 : static_cast<int>(list->size()), Counted::alive);
            deleteOwned(list);
            continue;
        }
        ReplacedAllocator::failAfter(-1);
        EXPECT_EQ(5u, list->size());
        deleteOwned(list);
        break;
    }
    EXPECT_GT(failedRuns, 5);
}
