// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using pelor::ch;
using pelor::lit;
using Log = std::vector<std::string>;

TEST(ActionAdapter, RunsOnceWithTheExactMatchedText) {
    Log log;
    EXPECT_EQ(scan((lit("ab") >> ch('c'))[Recorder(log, "seen")], "xabcd", 1), matched(3));
    EXPECT_EQ(log, (Log{"seen:abc"}));
}

// Keeps the two positions an action was given.
class Capture {
public:
    Capture(const char*& first, const char*& last) : first_(&first), last_(&last) {}

    void operator()(const char* first, const char* last) const {
        *first_ = first;
        *last_ = last;
    }

private:
    const char** first_;
    const char** last_;
};

TEST(ActionAdapter, GetsTheStartAndTheEndOfTheMatch) {
    const std::string text = "xxabc";
    const char* first = nullptr;
    const char* last = nullptr;
    const char* pos = text.data() + 2;
    EXPECT_TRUE(lit("ab")[Capture(first, last)].match(pos, text.data() + text.size()));
    EXPECT_EQ(first, text.data() + 2);
    EXPECT_EQ(last, text.data() + 4);
    EXPECT_EQ(pos, last);
}

TEST(ActionAdapter, OnAnEmptySubjectGetsAnEmptyRange) {
    Log log;
    EXPECT_EQ(scan(pelor::epsilon()[Recorder(log, "here")], "abc", 1), matched(0));
    EXPECT_EQ(scan(pelor::epsilon()[Recorder(log, "end")], "abc", 3), matched(0));
    EXPECT_EQ(log, (Log{"here:", "end:"}));
}

TEST(ActionAdapter, DoesNotRunWhenTheSubjectFails) {
    Log log;
    EXPECT_EQ(scan(lit("ab")[Recorder(log, "seen")], "ax"), failed());
    EXPECT_TRUE(log.empty());
}

TEST(ActionAdapter, IsNotUndoneWhenAnEnclosingSequenceFails) {
    Log log;
    EXPECT_EQ(scan(ch('a')[Recorder(log, "a")] >> ch('b'), "ac"), failed());
    EXPECT_EQ(log, (Log{"a:a"}));
}

TEST(ActionAdapter, IsNotUndoneOnBacktrackingAndRunsAgainOnRematch) {
    Log log;
    const auto choice = (ch('a')[Recorder(log, "first")] >> ch('b')) | (ch('a')[Recorder(log, "second")] >> ch('c'));
    EXPECT_EQ(scan(choice, "ac"), matched(2));
    EXPECT_EQ(log, (Log{"first:a", "second:a"}));
}

TEST(ActionAdapter, NestedActionsRunInnermostFirst) {
    Log log;
    EXPECT_EQ(scan(ch('a')[Recorder(log, "inner")][Recorder(log, "outer")], "a"), matched(1));
    EXPECT_EQ(log, (Log{"inner:a", "outer:a"}));
    log.clear();
    EXPECT_EQ(scan((ch('a')[Recorder(log, "inner")] >> ch('b'))[Recorder(log, "outer")], "ab"), matched(2));
    EXPECT_EQ(log, (Log{"inner:a", "outer:ab"}));
}

TEST(ActionAdapter, ActionsRunAsTheirSubjectsFinish) {
    Log log;
    EXPECT_EQ(scan(ch('a')[Recorder(log, "1")] >> ch('b')[Recorder(log, "2")], "ab"), matched(2));
    EXPECT_EQ(log, (Log{"1:a", "2:b"}));
}

TEST(ActionAdapter, ExceptionsFromTheActionPassThroughLeavingThePosition) {
    const std::string text = "ab";
    const char* pos = text.data();
    const auto expression = ch('a') >> lit("b")[Throwing()];
    EXPECT_THROW(expression.match(pos, text.data() + text.size()), std::runtime_error);
    EXPECT_EQ(pos, text.data());
}

TEST(ActionAdapter, IndexingMakesAnActionAdapter) {
    EXPECT_TRUE(
        (std::is_same<decltype(lit("a")[Throwing()]), pelor::action_adapter<pelor::literal_string, Throwing>>::value));
}

} // namespace
