// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using pelor::ch;
using pelor::ref;
using pelor::rule;

using Log = std::vector<std::string>;

const auto letter = pelor::char_class<pelor::alpha>();

TEST(ChainAdapter, FirstAloneFoldsNothing) {
    int folds = 0;
    EXPECT_EQ(scan(pelor::chain(letter, ch('+') >> letter, Counter(folds)), "a-b"), matched(1));
    EXPECT_EQ(folds, 0);
}

TEST(ChainAdapter, FailsUnmovedWhenFirstFailsAndTriesNoLink) {
    Log log;
    const auto chained = pelor::chain(letter, ch('+')[Recorder(log, "link")] >> letter, Recorder(log, "fold"));
    EXPECT_EQ(scan(chained, "+a"), failed());
    EXPECT_EQ(scanWithin(chained, "a", 1, 1), failed());
    EXPECT_TRUE(log.empty());
}

TEST(ChainAdapter, FoldsEveryLinkWithTheWholeChainAfterTheLastAttempt) {
    Log log;
    const auto element = letter[Recorder(log, "element")];
    EXPECT_EQ(scan(pelor::chain(element, ch('+') >> element, Recorder(log, "fold")), "a+b+c-d"), matched(5));
    EXPECT_EQ(log, (Log{"element:a", "element:b", "element:c", "fold:a+b+c", "fold:a+b+c"}));
}

TEST(ChainAdapter, AFailedLinkConsumesNothingAndItsActionsStay) {
    Log log;
    const auto link = ch('+')[Recorder(log, "separator")] >> letter;
    EXPECT_EQ(scan(pelor::chain(letter, link, Recorder(log, "fold")), "a+b+"), matched(3));
    EXPECT_EQ(log, (Log{"separator:+", "separator:+", "fold:a+b"}));
}

// Nodes pushed by the elements, folded into a right-leaning tree.
class TreeBuilder {
public:
    explicit TreeBuilder(std::vector<std::string>& stack) : stack_(&stack) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        const std::string right = stack_->back();
        stack_->pop_back();
        stack_->back() = "(" + stack_->back() + " " + right + ")";
    }

private:
    std::vector<std::string>* stack_;
};

class Push {
public:
    explicit Push(std::vector<std::string>& stack) : stack_(&stack) {}

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        stack_->push_back(std::string(first, last));
    }

private:
    std::vector<std::string>* stack_;
};

TEST(ChainAdapter, FoldingOnAStackLeansToTheRight) {
    std::vector<std::string> stack;
    const auto element = letter[Push(stack)];
    EXPECT_EQ(scan(pelor::chain(element, ch('+') >> element, TreeBuilder(stack)), "a+b+c+d"), matched(7));
    EXPECT_EQ(stack, (std::vector<std::string>{"(a (b (c d)))"}));
}

TEST(ChainAdapter, AnUndefinedLinkRuleEndsTheChain) {
    rule undefined;
    int folds = 0;
    EXPECT_EQ(scan(pelor::chain(letter, ref<rule>(undefined), Counter(folds)), "ab"), matched(1));
    EXPECT_EQ(folds, 0);
}

// The same grammar twice: once with the chain, once with the right-recursive
// rule it replaces. The fold only logs its name, since the two differ in the
// text a fold is given, and in nothing else.
class ChainAndRecursion {
public:
    ChainAndRecursion() {
        const auto element = pelor::one_or_more(letter)[Recorder(chainLog, "element")];
        const auto separator =
            (pelor::zero_or_more(ch(' ')) >> ch('+'))[Recorder(chainLog, "separator")] >> pelor::zero_or_more(ch(' '));
        chained = pelor::chain(element, separator >> element, Counter(chainFolds)) >> ch(';');

        const auto recursiveElement = pelor::one_or_more(letter)[Recorder(recursionLog, "element")];
        const auto recursiveSeparator =
            (pelor::zero_or_more(ch(' ')) >> ch('+'))[Recorder(recursionLog, "separator")] >>
            pelor::zero_or_more(ch(' '));
        recursive =
            recursiveElement >> pelor::optional((recursiveSeparator >> ref<rule>(recursive))[Counter(recursionFolds)]);
        recursiveWhole = ref<rule>(recursive) >> ch(';');
    }

    rule chained;
    rule recursive;
    rule recursiveWhole;
    Log chainLog;
    Log recursionLog;
    int chainFolds = 0;
    int recursionFolds = 0;
};

TEST(ChainAdapter, MatchesAndActsLikeTheRightRecursiveRule) {
    std::mt19937 random(5150);
    int matches = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = randomText(random, "ab+ ;", 16);
        ChainAndRecursion grammars;
        const Scan chained = scan(grammars.chained, text);
        EXPECT_EQ(chained, scan(grammars.recursiveWhole, text)) << text;
        EXPECT_EQ(grammars.chainLog, grammars.recursionLog) << text;
        EXPECT_EQ(grammars.chainFolds, grammars.recursionFolds) << text;
        matches += chained.matched;
    }
    EXPECT_GT(matches, 100);
}

// A million links, on a stack far too small for a million nested calls.
TEST(ChainAdapter, TheStackDoesNotGrowWithTheChain) {
    const int links = 1000000;
    std::string text = "a";
    for (int i = 0; i < links; ++i) {
        text += "+a";
    }
    int folds = 0;
    Scan result = failed();
    SmallStack::run([&] { result = scan(pelor::chain(letter, ch('+') >> letter, Counter(folds)), text); }, 64 * 1024);
    EXPECT_EQ(result, matched(static_cast<std::ptrdiff_t>(text.size())));
    EXPECT_EQ(folds, links);
}

} // namespace
