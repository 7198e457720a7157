// SPDX-License-Identifier: MIT
#include "rules/PrefixTextIndex.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using QuorelScript::PrefixTextIndex;

namespace {

// The positions of every run, checking that each run ascends.
std::vector<std::uint32_t> prefixesOf(const PrefixTextIndex& index, const std::string& subject) {
    QuorelScript::PositionRuns runs;
    index.collectPrefixesOf(subject, runs);
    std::vector<std::uint32_t> positions;
    for (const QuorelScript::PositionRun& run : runs) {
        EXPECT_TRUE(std::is_sorted(run.next, run.end));
        positions.insert(positions.end(), run.next, run.end);
    }
    std::sort(positions.begin(), positions.end());
    return positions;
}

} // namespace

TEST(PrefixTextIndex, FindsEveryTextThatIsAPrefix) {
    PrefixTextIndex index;
    index.add("/a/b", 0);
    index.add("/a/bc", 1);
    index.add("/a/b/", 2);
    index.add("/x", 3);
    index.add("/a/b", 4);
    index.finish();
    EXPECT_EQ(prefixesOf(index, "/a/bc/d"), (std::vector<std::uint32_t>{0, 1, 4}));
    EXPECT_EQ(prefixesOf(index, "/a/b/c"), (std::vector<std::uint32_t>{0, 2, 4}));
    EXPECT_EQ(prefixesOf(index, "/a/b"), (std::vector<std::uint32_t>{0, 4}));
    EXPECT_EQ(prefixesOf(index, "/a"), (std::vector<std::uint32_t>{}));
    EXPECT_EQ(prefixesOf(index, ""), (std::vector<std::uint32_t>{}));
}

TEST(PrefixTextIndex, TheEmptyTextIsAPrefixOfEverything) {
    PrefixTextIndex index;
    index.add("", 7);
    index.add("\xff", 8);
    index.finish();
    EXPECT_EQ(prefixesOf(index, ""), (std::vector<std::uint32_t>{7}));
    EXPECT_EQ(prefixesOf(index, "\xff\x01"), (std::vector<std::uint32_t>{7, 8}));
    EXPECT_EQ(prefixesOf(index, "\x7f"), (std::vector<std::uint32_t>{7}));
}

TEST(PrefixTextIndex, AnEmptyIndexFindsNothing) {
    PrefixTextIndex index;
    index.finish();
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(prefixesOf(index, "/a"), (std::vector<std::uint32_t>{}));
}

TEST(PrefixTextIndex, ALongTextIsNoDeepRecursion) {
    PrefixTextIndex index;
    const std::string deep(200000, 'a');
    index.add(deep, 1);
    index.finish();
    EXPECT_EQ(prefixesOf(index, deep + "b"), (std::vector<std::uint32_t>{1}));
    EXPECT_EQ(prefixesOf(index, deep.substr(1)), (std::vector<std::uint32_t>{}));
}

TEST(PrefixTextIndex, ThePositionsOfOneTextFormAnAscendingRun) {
    PrefixTextIndex index;
    index.add("/a", 9);
    index.add("/a/b", 1);
    index.add("/a", 2);
    index.add("/a", 5);
    index.finish();
    QuorelScript::PositionRuns runs;
    index.collectPrefixesOf("/a/b", runs);
    ASSERT_EQ(2u, runs.size());
    EXPECT_EQ((std::vector<std::uint32_t>(runs[0].next, runs[0].end)), (std::vector<std::uint32_t>{2, 5, 9}));
    EXPECT_EQ((std::vector<std::uint32_t>(runs[1].next, runs[1].end)), (std::vector<std::uint32_t>{1}));
}
