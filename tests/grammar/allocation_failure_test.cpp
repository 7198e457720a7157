// SPDX-License-Identifier: MIT
// A parse that runs out of memory at any one allocation lets the exception
// through and frees everything exactly once. Every allocation of a parse is
// made to fail in turn; a double delete or a leak shows in the sanitizer
// build, and mostly as a crash in the others.
#include "ReplacedAllocator.hpp"
#include "StreamCapture.hpp"
#include "TempTree.hpp"
#include "rules/ParsedRules.hpp"

#include <qxqrscript/FileReader.hpp>
#include <qxqrscript/Parser.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <iostream>
#include <memory>
#include <new>
#include <sstream>
#include <streambuf>
#include <string>

namespace {

using QuorelScript::FileReader;
using QuorelScript::ParsedRules;
using QuorelScript::Parser;
using QuorelScript::Rules;

// Every kind of rule, list and operator, a continuation and a comment.
const char* const script = "exclude if a exists and not (b == c) % note\n"
                           "prune unless d in [e, \"f g\"] or h not in i\n"
                           "include [j, k] if true or x != y ...\n"
                           "  and false\n";

const char* const printedScript = "\texclude if and(exists(a),not(equals(b,c)))\n"
                                  "\n"
                                  "\tprune if not(or(in(d,[e,f g]),not(in(h,[i]))))\n"
                                  "\n"
                                  "\tinclude [j,k] if or(true,and(not(equals(x,y)),false))\n"
                                  "\n";

// Swallows the debug trace without allocating anything.
class DiscardingBuffer : public std::streambuf {
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
};

std::string printed(const Rules& rules) {
    std::ostringstream out;
    out << &rules;
    return out.str();
}

// A rule set with three empty lists, of which none leaks when a later
// allocation fails.
std::unique_ptr<ParsedRules> emptyRuleSet() {
    std::unique_ptr<QuorelScript::ExcludeRuleList> exclude(new QuorelScript::ExcludeRuleList);
    std::unique_ptr<QuorelScript::PruneRuleList> prune(new QuorelScript::PruneRuleList);
    std::unique_ptr<QuorelScript::IncludeRuleList> include(new QuorelScript::IncludeRuleList);
    std::unique_ptr<ParsedRules> rules(new ParsedRules(exclude.get(), prune.get(), include.get()));
    exclude.release();
    prune.release();
    include.release();
    return rules;
}

// Runs `parse` once with the first allocation failing, once with the second
// failing, and so on, until a run meets no failure. Each run must either end
// with std::bad_alloc or finish; the result is the number of runs that failed.
int failEachAllocationInTurn(const std::function<void()>& parse) {
    int failedRuns = 0;
    for (long allowed = 0;; ++allowed) {
        ReplacedAllocator::failAfter(allowed);
        bool ranOut = false;
        try {
            parse();
        } catch (const std::bad_alloc&) {
            ranOut = true;
        }
        const bool someAllocationFailed = ReplacedAllocator::failed();
        ReplacedAllocator::failAfter(-1);
        if (ranOut) {
            EXPECT_TRUE(someAllocationFailed);
            ++failedRuns;
        } else if (!someAllocationFailed) {
            return failedRuns;
        }
    }
}

} // namespace

TEST(AllocationFailure, IntoANewRuleSet) {
    std::string result;
    int failedRuns = failEachAllocationInTurn([&result] {
        Parser parser;
        std::unique_ptr<Rules> rules(parser.parse(script));
        result = rules ? printed(*rules) : "<syntax error>";
    });
    EXPECT_GT(failedRuns, 100);
    EXPECT_EQ(printedScript, result);
}

// The debug trace allocates too.
TEST(AllocationFailure, IntoACallersRuleSetWithTheTraceOn) {
    DiscardingBuffer discarding;
    const qxqr::StreamRedirect toNowhere(std::cout, discarding);
    std::string result;
    int failedRuns = failEachAllocationInTurn([&result] {
        Parser parser;
        std::unique_ptr<ParsedRules> rules = emptyRuleSet();
        parser.parse(rules.get(), "exclude if z exists\nbad\n");
        parser.parse(rules.get(), script, true);
        result = printed(*rules);
    });
    EXPECT_GT(failedRuns, 100);
    EXPECT_EQ("\texclude if exists(z)\n"
              "\texclude if and(exists(a),not(equals(b,c)))\n"
              "\n"
              "\tprune if not(or(in(d,[e,f g]),not(in(h,[i]))))\n"
              "\n"
              "\tinclude [j,k] if or(true,and(not(equals(x,y)),false))\n"
              "\n",
              result);
}

TEST(AllocationFailure, FromAFile) {
    TempTree tree;
    const std::string file = tree.file("rules.qr", script);
    std::string result;
    int failedRuns = failEachAllocationInTurn([&file, &result] {
        FileReader reader;
        std::unique_ptr<Rules> rules(reader.read(file.c_str()));
        result = rules ? printed(*rules) : "<unread>";
    });
    EXPECT_GT(failedRuns, 100);
    EXPECT_EQ(printedScript, result);
}
