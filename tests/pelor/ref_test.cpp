// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using pelor::ch;
using pelor::epsilon;
using pelor::ref;
using pelor::rule;

TEST(Ref, HoldsOnlyARulePointer) {
    EXPECT_EQ(sizeof(ref<rule>), sizeof(const rule*));
}

TEST(Ref, ToUndefinedRuleFailsAndLeavesPosition) {
    const rule undefined;
    EXPECT_EQ(scan(ref<rule>(undefined), "abc", 1), failed());
    EXPECT_EQ(scan(ref<rule>(undefined), ""), failed());
}

TEST(Ref, MadeBeforeTheDefinitionSeesTheDefinition) {
    rule r;
    const ref<rule> early(r);
    EXPECT_EQ(scan(early, "ab"), failed());
    r = ch('a') >> ch('b');
    EXPECT_EQ(scan(early, "ab"), matched(2));
}

TEST(Ref, OneOrMoreOfUndefinedRuleFails) {
    const rule undefined;
    EXPECT_EQ(scan(pelor::one_or_more(ref<rule>(undefined)), "abc"), failed());
}

TEST(Ref, ZeroOrMoreOfUndefinedRuleSucceedsEmpty) {
    const rule undefined;
    EXPECT_EQ(scan(pelor::zero_or_more(ref<rule>(undefined)), "abc"), matched(0));
}

// An action that gives a rule a new body, from outside that rule.
class Redefine {
public:
    Redefine(rule& target, char c) : target_(&target), c_(c) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        *target_ = pelor::literal_string(std::string(1, c_));
    }

private:
    rule* target_;
    char c_;
};

// The new body is a literal, bigger than the character class it replaces, so
// that it cannot take the old body's place in memory and pass for it.
TEST(Ref, RepetitionLooksTheBodyUpAgainAtEachIteration) {
    rule item;
    item = ch('a');
    const auto items = pelor::zero_or_more(ref<rule>(item) >> epsilon()[Redefine(item, 'b')]);
    EXPECT_EQ(scan(items, "abbba"), matched(4));
}

// Each body starts with a counting epsilon, so the counts say how often each
// body was entered.
TEST(Ref, EachReferenceCrossedEntersItsBodyOnce) {
    int leafEntries = 0;
    int middleEntries = 0;
    rule leaf;
    rule middle;
    rule top;
    leaf = epsilon()[Counter(leafEntries)] >> ch('x');
    middle = epsilon()[Counter(middleEntries)] >> ref<rule>(leaf);
    top = ref<rule>(leaf) >> ref<rule>(middle) >> ref<rule>(leaf);
    EXPECT_EQ(scan(top, "xxx"), matched(3));
    EXPECT_EQ(leafEntries, 3);
    EXPECT_EQ(middleEntries, 1);
}

} // namespace
