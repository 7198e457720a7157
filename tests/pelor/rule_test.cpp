// SPDX-License-Identifier: MIT
#include "DynamicType.hpp"
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace {

using pelor::ch;
using pelor::lit;
using pelor::ref;
using pelor::rule;

// An action that keeps count of its live copies, so that a test can see when
// the body holding it is deleted.
class Tracked {
public:
    explicit Tracked(int& live) : live_(&live) { ++*live_; }
    Tracked(const Tracked& other) : live_(other.live_) { ++*live_; }
    Tracked& operator=(const Tracked&) = default;
    ~Tracked() { --*live_; }

    template <class Iterator>
    void operator()(Iterator, Iterator) const {}

private:
    int* live_;
};

// The slot of a virtual function in its class's table. Under the C++ ABI of
// the platform, a pointer to a virtual member function holds one more than the
// byte offset of the function's slot, followed by a this-adjustment.
template <class MemberFunction>
std::ptrdiff_t tableSlot(MemberFunction function) {
    struct Representation {
        std::ptrdiff_t slotOffsetPlusOne;
        std::ptrdiff_t thisAdjustment;
    };
    static_assert(sizeof(MemberFunction) == sizeof(Representation), "unexpected member pointer layout");
    Representation representation;
    std::memcpy(&representation, &function, sizeof representation);
    return (representation.slotOffsetPlusOne - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// The two destructors take the first two slots; the four entry points follow
// them, the character-pointer one first.
TEST(RuleImplBase, EntryPointsFollowTheDestructorsInSlotOrder) {
    using pelor::rule_impl_base;
    using ConstIterator = std::string::const_iterator;
    using Iterator = std::string::iterator;
    EXPECT_EQ(tableSlot<bool (rule_impl_base::*)(const char*&, const char*) const>(&rule_impl_base::parse), 2);
    EXPECT_EQ(tableSlot<bool (rule_impl_base::*)(char*&, char*) const>(&rule_impl_base::parse), 3);
    EXPECT_EQ(tableSlot<bool (rule_impl_base::*)(ConstIterator&, ConstIterator) const>(&rule_impl_base::parse), 4);
    EXPECT_EQ(tableSlot<bool (rule_impl_base::*)(Iterator&, Iterator) const>(&rule_impl_base::parse), 5);
}

TEST(Rule, HoldsOnlyItsBodyPointer) {
    EXPECT_EQ(sizeof(rule), sizeof(pelor::rule_impl_base*));
}

TEST(Rule, HasNoBodyUntilAssigned) {
    rule r;
    EXPECT_EQ(r.body(), nullptr);
    r = lit("x");
    EXPECT_NE(r.body(), nullptr);
}

TEST(Rule, WithoutBodyFailsAndLeavesPosition) {
    const rule r;
    const std::string text = "abc";
    const char* pos = text.data() + 1;
    EXPECT_FALSE(r.match(pos, text.data() + text.size()));
    EXPECT_EQ(pos, text.data() + 1);
}

TEST(Rule, MatchesWhatItsBodyMatches) {
    rule r;
    r = lit("ab") >> ch('c');
    EXPECT_EQ(scan(r, "abcd"), matched(3));
    EXPECT_EQ(scan(r, "abd"), failed());
}

TEST(Rule, BodyIsOneInstantiationHoldingTheWholeExpression) {
    rule r;
    const auto expression = lit("a") | ch('b');
    r = expression;
    EXPECT_NE(dynamic_cast<const pelor::rule_impl<std::decay_t<decltype(expression)>>*>(r.body()), nullptr);
}

TEST(Rule, BodiesOfTheSameShapeShareOneInstantiation) {
    rule a;
    rule b;
    rule first;
    rule second;
    first = ref<rule>(a) | ref<rule>(b);
    second = ref<rule>(b) | ref<rule>(a);
    EXPECT_EQ(dynamicType(*first.body()), dynamicType(*second.body()));
}

TEST(Rule, ReassignmentDeletesTheOldBody) {
    int oldLive = 0;
    int newLive = 0;
    rule r;
    r = lit("old")[Tracked(oldLive)];
    ASSERT_EQ(oldLive, 1);
    r = lit("new")[Tracked(newLive)];
    EXPECT_EQ(oldLive, 0);
    EXPECT_EQ(newLive, 1);
}

TEST(Rule, DestructionDeletesTheBody) {
    int live = 0;
    {
        rule r;
        r = ch('x')[Tracked(live)];
        ASSERT_EQ(live, 1);
    }
    EXPECT_EQ(live, 0);
}

// The two bodies differ in size, so that the new one cannot take the old
// one's place in memory and pass for it.
TEST(Rule, LastAssignmentWinsForReferencesMadeBefore) {
    rule r;
    const ref<rule> earlier(r);
    r = ch('f');
    EXPECT_EQ(scan(earlier, "first"), matched(1));
    r = lit("second");
    EXPECT_EQ(scan(earlier, "second"), matched(6));
    EXPECT_EQ(scan(earlier, "first"), failed());
}

TEST(Rule, FailureAfterLongPrefixLeavesPosition) {
    rule r;
    r = pelor::one_or_more(ch('a')) >> ch('b');
    const std::string text = "x" + std::string(1000, 'a') + "c";
    EXPECT_EQ(scan(r, text, 1), failed());
    EXPECT_EQ(scan(ref<rule>(r), text, 1), failed());
}

TEST(Rule, SelfReferenceAfterConsumingInputTerminates) {
    rule r;
    r = ch('a') >> ref<rule>(r) | ch('b');
    EXPECT_EQ(scan(r, "aaaab!"), matched(5));
    EXPECT_EQ(scan(r, "aaaa"), failed());
}

TEST(Rule, MatchingAtTheEndIsLegal) {
    rule needsByte;
    needsByte = ch('a');
    rule empty;
    empty = pelor::zero_or_more(ch('a'));
    EXPECT_EQ(scanWithin(needsByte, "aa", 1, 1), failed());
    EXPECT_EQ(scanWithin(empty, "aa", 1, 1), matched(0));
    EXPECT_EQ(scan(empty, ""), matched(0));
}

// Left recursion is not detected: the rule enters itself before consuming
// anything, forever, until the stack is exhausted.
TEST(RuleDeathTest, LeftRecursionExhaustsTheStack) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    rule r;
    r = ref<rule>(r) >> ch('a') | ch('b');
    EXPECT_DEATH(scan(r, "ba"), "");
}

} // namespace
