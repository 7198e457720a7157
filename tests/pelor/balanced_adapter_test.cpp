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

TEST(BalancedAdapter, ItemsUpToTheClose) {
    EXPECT_EQ(scan(pelor::balanced(ch('<'), letter, ch('>')), "ab>c"), matched(3));
    EXPECT_EQ(scan(pelor::balanced(ch('<'), letter, ch('>')), ">"), matched(1));
}

TEST(BalancedAdapter, EveryOpenOwesAClose) {
    const auto nest = pelor::balanced(ch('<'), letter, ch('>'));
    EXPECT_EQ(scan(nest, "a<b<c>d>e>f"), matched(10));
    EXPECT_EQ(scan(nest, "<<>>>>"), matched(5));
}

TEST(BalancedAdapter, FailsUnmovedWithoutTheClose) {
    const auto nest = pelor::balanced(ch('<'), letter, ch('>'));
    EXPECT_EQ(scan(nest, "ab!"), failed());
    EXPECT_EQ(scan(nest, "a<b>"), failed());
    EXPECT_EQ(scan(nest, ""), failed());
}

TEST(BalancedAdapter, OpenIsTriedBeforeItem) {
    Log log;
    const auto nest = pelor::balanced(pelor::lit("ab")[Recorder(log, "open")], letter[Recorder(log, "item")], ch(';'));
    EXPECT_EQ(scan(nest, "aab;;"), matched(5));
    EXPECT_EQ(log, (Log{"item:a", "open:ab"}));
}

// An empty close, such as the end of input, closes every level left open.
TEST(BalancedAdapter, AnEmptyCloseClosesEveryOpenLevel) {
    const auto nest = pelor::balanced(ch('<'), letter, pelor::end_of_input() | ch('>'));
    EXPECT_EQ(scan(nest, "a<b<c"), matched(5));
    EXPECT_EQ(scan(nest, "a<b>c"), matched(5));
}

// A close missing inside a nested level fails the whole match; the
// recursive rule fails only that level, and reads its open as an item.
TEST(BalancedAdapter, AMissingNestedCloseFailsTheWhole) {
    const auto item = pelor::lit("<!") | letter;
    EXPECT_EQ(scan(pelor::balanced(ch('<'), item, ch('>')), "<!>"), failed());

    rule recursive;
    recursive = pelor::zero_or_more((ch('<') >> ref<rule>(recursive)) | item) >> ch('>');
    EXPECT_EQ(scan(recursive, "<!>"), matched(3));
}

// Comment-like text: "." and a line end continue a line, ".%" opens a nested
// level that runs to a line end, and the text stops only at a line end or at
// the end of input, where a close always matches. There the loop and the
// recursive rule it stands for match, and act, alike.
auto commentOpen(Log& log) {
    return (ch('.') >> ch('%'))[Recorder(log, "open")];
}

auto commentItem(Log& log) {
    using NotLineEnd = pelor::not_char_predicate<pelor::exact_char>;
    return (ch('.') >> ch('\n'))[Recorder(log, "continued")] |
           pelor::char_class<NotLineEnd>(NotLineEnd(pelor::exact_char('\n')))[Recorder(log, "text")];
}

auto commentClose(Log& log) {
    return pelor::end_of_input() | ch('\n')[Recorder(log, "close")];
}

class BalancedAndRecursion {
public:
    BalancedAndRecursion() {
        balancedWhole = pelor::balanced(commentOpen(balancedLog), commentItem(balancedLog), commentClose(balancedLog));
        recursive =
            pelor::zero_or_more((commentOpen(recursionLog) >> ref<rule>(recursive)) | commentItem(recursionLog)) >>
            commentClose(recursionLog);
    }

    rule balancedWhole;
    rule recursive;
    Log balancedLog;
    Log recursionLog;
};

TEST(BalancedAdapter, MatchesAndActsLikeTheRecursiveRuleWhereACloseAlwaysFits) {
    std::mt19937 random(1789);
    int nested = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = randomText(random, ".%\na", 20);
        BalancedAndRecursion grammars;
        EXPECT_EQ(scan(grammars.balancedWhole, text), scan(grammars.recursive, text)) << text;
        EXPECT_EQ(grammars.balancedLog, grammars.recursionLog) << text;
        nested += text.find(".%") != std::string::npos;
    }
    EXPECT_GT(nested, 1000);
}

// A million levels, on a stack far too small for a million nested calls.
TEST(BalancedAdapter, TheStackDoesNotGrowWithTheNesting) {
    const int levels = 1000000;
    std::string text(levels, '<');
    text += std::string(levels + 1, '>');
    Scan result = failed();
    SmallStack::run([&] { result = scan(pelor::balanced(ch('<'), letter, ch('>')), text); }, 64 * 1024);
    EXPECT_EQ(result, matched(static_cast<std::ptrdiff_t>(text.size())));
}

} // namespace
