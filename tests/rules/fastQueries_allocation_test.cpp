// SPDX-License-Identifier: MIT
// Once a rule set has answered its first query, further queries allocate
// nothing of their own: the prepared conditions and the buffers they work in
// are kept, and only a longer text than any before would need more room.
#include "ReplacedAllocator.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

using QuorelScript::Parser;
using QuorelScript::Rules;

// Every shape of condition, as parsed and merged by precompute.
const char script[] = "exclude if $file in [$vantor/toolbox/, /usr/include/, $cwd/build/]\n"
                      "exclude if $ext == .o or $ext == .a\n"
                      "exclude if $dir == src/gen and not $name == keep\n"
                      "exclude if $file == $toolbox/lib/libtool$lib\n"
                      "exclude if not ($name$ext != x.c) and $caller == /src/main.c\n"
                      "exclude if $dir/$name.bak exists\n"
                      "prune if $dir in [/usr/lib, /lib] or $ext == $vrk\n"
                      "prune unless $file not in [/opt/v/, /work/] and true\n"
                      "include [$dir/$name.h, $dir/$name.inl] if $ext == .c\n"
                      "include $vantor/modules/$name$vrk if $dir == plugins\n"
                      "include /etc/none if false\n";

std::unique_ptr<Rules> preparedRules(bool precompute) {
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse(script));
    rules->setVantorRoot("/opt/v");
    rules->setCwd("/work");
    rules->bindVariable("unused", "/x");
    if (precompute)
        rules->precompute();
    return rules;
}

class CountingIncluder : public QuorelRules::Includer {
public:
    bool include(const char*) override {
        ++count;
        return true;
    }
    std::size_t count = 0;
};

const std::vector<const char*> files = {
    "/opt/v/toolbox/include/a.h", "/work/src/main.c", "src/gen/parser.o",    "src/gen/keep.c",
    "/usr/lib/libm.so",           "plugins/audio.c",  "/nowhere/at/all.txt", "",
    "  /work//build/x.c "};

// The allocations of `queries` rounds of asking about every file, after one
// round that may allocate.
template <class Ask>
std::size_t allocationsAfterWarmUp(Ask ask) {
    for (const char* file : files)
        ask(file);
    const std::size_t before = ReplacedAllocator::count();
    for (int round = 0; round < 20; ++round)
        for (const char* file : files)
            ask(file);
    return ReplacedAllocator::count() - before;
}

void expectNoAllocationPerAnswer(bool precompute) {
    std::unique_ptr<Rules> rules = preparedRules(precompute);
    EXPECT_EQ(0u, allocationsAfterWarmUp([&](const char* file) { rules->isExcluded(file, nullptr, "/src/main.c"); }));
    EXPECT_EQ(0u, allocationsAfterWarmUp([&](const char* file) { rules->isPruned(file, nullptr, file); }));
    CountingIncluder includer;
    const std::size_t allocations =
        allocationsAfterWarmUp([&](const char* file) { rules->getIncludes(file, nullptr, includer); });
    EXPECT_EQ(0u, allocations) << includer.count << " paths were included";
}

} // namespace

TEST(FastQueriesAllocation, AsParsed) {
    expectNoAllocationPerAnswer(false);
}

TEST(FastQueriesAllocation, AfterPrecompute) {
    expectNoAllocationPerAnswer(true);
}

TEST(FastQueriesAllocation, NothingToIncludeAllocatesNothingEither) {
    std::unique_ptr<Rules> rules = preparedRules(true);
    CountingIncluder includer;
    EXPECT_EQ(0u, allocationsAfterWarmUp([&](const char*) { rules->getIncludes("/a/b.txt", nullptr, includer); }));
    EXPECT_EQ(0u, includer.count);
}

// Enough tests of a variable against fixed texts for the index to answer
// them, each passing for the measured files while its condition fails. A
// query that the index finds more candidates for than any before still
// allocates nothing: the warm-up here finds none at all, and the measured
// queries, whose names are no longer than the warm-up's, find four runs of
// them each (three prefixes of the file, one directory).
TEST(FastQueriesAllocation, MoreIndexHitsThanAnyBeforeAllocateNothing) {
    std::string manyGuards;
    for (int rule = 0; rule < 12; ++rule) {
        const std::string n = std::to_string(rule);
        manyGuards += "exclude if $file in [/a/, /a/b/, /a/b/c" + n + "/] and $ext == .never\n";
        manyGuards += "exclude if $dir == /a/b/c" + n + " and $ext == .never\n";
    }
    for (const bool precompute : {false, true}) {
        Parser parser;
        std::unique_ptr<Rules> rules(parser.parse(manyGuards.c_str()));
        if (precompute)
            rules->precompute();
        const char* const noHit = "/nowhere/near/any/of/the/rules/at/all.txt";
        for (int query = 0; query < 10; ++query)
            EXPECT_FALSE(rules->isExcluded(noHit, nullptr, noHit));
        std::vector<std::string> hits;
        for (int rule = 0; rule < 12; ++rule)
            hits.push_back("/a/b/c" + std::to_string(rule) + "/d.x" + std::to_string(rule));
        const std::size_t before = ReplacedAllocator::count();
        for (const std::string& hit : hits)
            EXPECT_FALSE(rules->isExcluded(hit.c_str(), nullptr, noHit));
        EXPECT_EQ(before, ReplacedAllocator::count()) << (precompute ? "after precompute" : "as parsed");
    }
}

// After a change of configuration the first few queries are answered rule
// by rule, then the rules are prepared anew; after that, nothing is
// allocated again.
TEST(FastQueriesAllocation, AgainAfterReconfiguration) {
    std::unique_ptr<Rules> rules = preparedRules(false);
    rules->isExcluded("/work/src/main.c", nullptr, nullptr);
    rules->setVantorRoot("/opt/other");
    const std::size_t before = ReplacedAllocator::count();
    rules->isExcluded("/work/src/main.c", nullptr, nullptr);
    EXPECT_GT(ReplacedAllocator::count(), before) << "a query answered rule by rule makes its bindings";
    for (int query = 0; query < 10; ++query)
        rules->isExcluded("/work/src/main.c", nullptr, nullptr);
    EXPECT_EQ(0u, allocationsAfterWarmUp([&](const char* file) { rules->isExcluded(file, nullptr, nullptr); }));
}

namespace {

// Runs `step` on a fresh rule set with the k-th allocation failing, for
// every k until one run needs no failure; returns how many runs there were.
// A failed allocation may end the step with std::bad_alloc, never with
// anything else, and leaves nothing behind (the sanitizers check leaks).
template <class Step>
int failEachAllocationOf(Step step) {
    int runs = 0;
    for (long allowed = 0;; ++allowed) {
        std::unique_ptr<Rules> rules = preparedRules(false);
        ++runs;
        ReplacedAllocator::failAfter(allowed);
        try {
            step(*rules);
        } catch (const std::bad_alloc&) {
        }
        const bool failed = ReplacedAllocator::failed();
        ReplacedAllocator::failAfter(-1);
        if (!failed)
            return runs;
    }
}

} // namespace

TEST(FastQueriesAllocation, EveryAllocationOfTheFirstQueriesMayFail) {
    CountingIncluder includer;
    const int runs = failEachAllocationOf([&](Rules& rules) {
        rules.isExcluded("src/gen/parser.o", nullptr, "/src/main.c");
        rules.getIncludes("plugins/audio.c", nullptr, includer);
        rules.isPruned("/usr/lib/libm.so", nullptr, nullptr);
    });
    EXPECT_GT(runs, 10);
}

TEST(FastQueriesAllocation, EveryAllocationOfPrecomputeMayFail) {
    const int runs = failEachAllocationOf([](Rules& rules) {
        rules.precompute();
        rules.isExcluded("src/gen/parser.o", nullptr, nullptr);
    });
    EXPECT_GT(runs, 10);
}

// A query whose start runs out of memory (copying a long name) never ran:
// the rule set keeps no plan for it, so that reconfiguring and querying
// again and again holds no more memory than once.
TEST(FastQueriesAllocation, AQueryThatFailsToStartLeavesNoQueryRunning) {
    std::unique_ptr<Rules> rules = preparedRules(false);
    rules->isExcluded("/work/src/main.c", nullptr, nullptr);
    const std::string longName(4096, 'n');
    for (long allowed = 0; allowed < 4; ++allowed) {
        ReplacedAllocator::failAfter(allowed);
        try {
            rules->isExcluded(longName.c_str(), nullptr, longName.c_str());
        } catch (const std::bad_alloc&) {
        }
        ReplacedAllocator::failAfter(-1);
    }
    const auto reconfigureAndAsk = [&](int round) {
        rules->setCwd(round % 2 == 0 ? "/work" : "/other");
        for (int query = 0; query < 6; ++query)
            rules->isExcluded("/work/src/main.c", nullptr, nullptr);
    };
    reconfigureAndAsk(0);
    const std::size_t heldAfterOne = ReplacedAllocator::held();
    for (int round = 1; round <= 20; ++round)
        reconfigureAndAsk(round);
    EXPECT_EQ(heldAfterOne, ReplacedAllocator::held());
}
