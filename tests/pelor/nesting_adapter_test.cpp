// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using pelor::ch;
using pelor::ref;
using pelor::rule;

// Balanced parentheses, each pair one level deeper on `depth`.
class Parentheses {
public:
    explicit Parentheses(int limit) : depth(limit) {
        nest = pelor::zero_or_more(ch('(') >> pelor::nested(depth, ref<rule>(nest)) >> ch(')'));
        whole = ref<rule>(nest) >> pelor::end_of_input();
    }

    pelor::nesting_depth depth;
    rule nest;
    rule whole;
};

TEST(NestingAdapter, WithinTheLimitMatchesLikeItsOperand) {
    Parentheses grammar(3);
    EXPECT_EQ(scan(grammar.whole, "((()))()"), matched(8));
    EXPECT_FALSE(grammar.depth.exceeded());
    EXPECT_EQ(grammar.depth.current(), 0);
}

TEST(NestingAdapter, BeyondTheLimitFailsAndSaysSo) {
    Parentheses grammar(3);
    EXPECT_EQ(scan(grammar.whole, "(((())))"), failed());
    EXPECT_TRUE(grammar.depth.exceeded());
    EXPECT_EQ(grammar.depth.current(), 0);
    EXPECT_EQ(grammar.depth.limit(), 3);
}

TEST(NestingAdapter, AFailureWithinTheLimitSaysNothing) {
    Parentheses grammar(3);
    EXPECT_EQ(scan(grammar.whole, "((())"), failed());
    EXPECT_FALSE(grammar.depth.exceeded());
}

TEST(NestingAdapter, TheRecordStaysUntilReset) {
    Parentheses grammar(1);
    EXPECT_EQ(scan(grammar.whole, "(())"), failed());
    EXPECT_EQ(scan(grammar.whole, "()"), matched(2));
    EXPECT_TRUE(grammar.depth.exceeded());
    grammar.depth.reset();
    EXPECT_FALSE(grammar.depth.exceeded());
    EXPECT_EQ(grammar.depth.current(), 0);
}

// Logs the depth at which it runs.
class DepthLog {
public:
    DepthLog(std::vector<int>& depths, const pelor::nesting_depth& depth) : depths_(&depths), depth_(&depth) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        depths_->push_back(depth_->current());
    }

private:
    std::vector<int>* depths_;
    const pelor::nesting_depth* depth_;
};

TEST(NestingAdapter, TheOperandRunsOneLevelDeeper) {
    pelor::nesting_depth depth(5);
    std::vector<int> depths;
    const auto inner = pelor::nested(depth, ch('a')[DepthLog(depths, depth)]);
    EXPECT_EQ(scan(pelor::nested(depth, inner >> inner), "aa"), matched(2));
    EXPECT_EQ(depths, (std::vector<int>{2, 2}));
    EXPECT_EQ(depth.current(), 0);
}

TEST(NestingAdapter, AtTheLimitTheOperandIsNotTried) {
    pelor::nesting_depth depth(0);
    int calls = 0;
    EXPECT_EQ(scan(pelor::nested(depth, pelor::epsilon()[Counter(calls)]), "a"), failed());
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(depth.exceeded());
}

TEST(NestingAdapter, AnExceptionGivesTheLevelBack) {
    pelor::nesting_depth depth(2);
    const std::string text = "a";
    const char* pos = text.data();
    EXPECT_THROW(pelor::nested(depth, ch('a')[Throwing()]).match(pos, text.data() + text.size()), std::runtime_error);
    EXPECT_EQ(depth.current(), 0);
    EXPECT_EQ(pos, text.data());
}

} // namespace
