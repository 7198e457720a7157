// SPDX-License-Identifier: MIT
// Chains of "and" and "or": each is read in a loop, and leaves behind exactly
// what reading it right-recursively, one operand and one nested chain at a
// time, would: the same right-leaning tree, the same nodes on the stacks
// (stale ones from failed attempts included), the same line count and the
// same trace.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace GrammarTesting;
using QuorelScript::ExcludeRule;
using QuorelScript::Expression;
using QuorelScript::ParserImpl;
using QuorelScript::Path;
using QuorelScript::PathList;
using QuorelScript::PruneRule;

namespace {

// The printed forms of what is left on the stack of T, top first.
template <class T>
std::vector<std::string> leftOn(ParserImpl& impl) {
    std::vector<std::string> printed;
    while (!impl.stack<T>().empty()) {
        std::ostringstream out;
        impl.stack<T>().pop()->print(out);
        printed.push_back(out.str());
    }
    return printed;
}

// The printed conditions of the rules of kind R that `impl` has collected.
template <class R>
std::vector<std::string> conditions(ParserImpl& impl) {
    std::vector<std::string> printed;
    if (const auto* list = impl.rules<R>().list())
        for (const R* rule : *list) {
            std::ostringstream out;
            rule->condition->print(out);
            printed.push_back(out.str());
        }
    return printed;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(Chain, MixedChainsLeanToTheRightOnEachLevel) {
    EXPECT_EQ(excluding("or(and(exists(a),and(exists(b),exists(c))),or(exists(d),and(exists(e),exists(f))))"),
              excludeIf("a exists and b exists and c exists or d exists or e exists and f exists"));
}

// "and" followed by something that is no operand ends the chain before the
// "and": the statement then fails, but the rule made of what came before
// stays, and so does the path that the failed operand pushed.
TEST(Chain, AnAndWithoutOperandEndsTheChainBeforeIt) {
    ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "exclude if a exists and junk!\n"));
    EXPECT_EQ(1, impl.lineCount());
    EXPECT_EQ(Texts{"exists(a)"}, conditions<ExcludeRule>(impl));
    EXPECT_EQ(Texts{"<anonymous script>, line 1: \nexclude if a exists"}, ruleNames<ExcludeRule>(impl));
    EXPECT_EQ(Texts{"junk"}, leftOn<Expression<Path>>(impl));
    EXPECT_EQ(Texts{}, leftOn<Expression<bool>>(impl));
}

// The word after "and" is read as a path first; "or" then ends the chain.
TEST(Chain, AnAndRightBeforeAnOrEndsBothChains) {
    ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "prune if a exists and or b == c\n"));
    EXPECT_EQ(Texts{"exists(a)"}, conditions<PruneRule>(impl));
    EXPECT_EQ(Texts{"or"}, leftOn<Expression<Path>>(impl));
    EXPECT_EQ(Texts{}, leftOn<Expression<bool>>(impl));
}

// A parenthesised operand that fails after its condition was built leaves
// that condition on top of the stack; the rule takes it, and the operand
// before the "and" stays behind.
TEST(Chain, AFailedParenthesisedOperandLeavesItsConditionOnTop) {
    ParserImpl impl;
    impl.setDebugVerbose(true);
    StreamCapture output;
    EXPECT_FALSE(matchAll(impl, "exclude if a exists and (b exists junk\n"));
    EXPECT_EQ("Attempting to parse equals expression at line 1: exists and (b exists junk\n"
              "Attempting to parse equals expression at line 1: exists junk\n"
              "Parsed (boolean expression): a exists\n"
              "    parse tree: exists(b)\n",
              output.text());
    EXPECT_EQ(Texts{"exists(b)"}, conditions<ExcludeRule>(impl));
    EXPECT_EQ(Texts{"exists(a)"}, leftOn<Expression<bool>>(impl));
}

TEST(Chain, ContinuationsInsideAChainCountTheirLines) {
    ParserImpl impl;
    ASSERT_TRUE(
        matchAll(impl, "exclude if a exists and ...\n b exists or ...% c ...%\n\n c exists\nprune if d exists\n"));
    EXPECT_EQ(6, impl.lineCount());
    EXPECT_EQ(Texts{"or(and(exists(a),exists(b)),exists(c))"}, conditions<ExcludeRule>(impl));
    EXPECT_EQ(Texts{"<anonymous script>, line 4: \nexclude if a exists and ...\n b exists or ...% c ...%\n\n c exists"},
              ruleNames<ExcludeRule>(impl));
    EXPECT_EQ(Texts{"<anonymous script>, line 5: \nprune if d exists"}, ruleNames<PruneRule>(impl));
}

// The continuation after the last "and" was read before its operand failed:
// its line end stays counted.
TEST(Chain, AFailedLinkKeepsTheLinesItCounted) {
    ParserImpl impl;
    EXPECT_FALSE(matchAll(impl, "exclude if a exists and ...\n ...\n !\n"));
    EXPECT_EQ(3, impl.lineCount());
    EXPECT_EQ(Texts{"exists(a)"}, conditions<ExcludeRule>(impl));
}

TEST(Chain, TraceShowsEveryComparisonInOrderThenTheWholeTree) {
    ParserImpl impl;
    impl.setDebugVerbose(true);
    StreamCapture output;
    ASSERT_TRUE(matchAll(impl, "exclude if a == b and c exists or d != e and f in [g]\n"));
    EXPECT_EQ("Attempting to parse equals expression at line 1: == b and c exists or d != e and f in [g]\n"
              "Attempting to parse equals expression at line 1: exists or d != e and f in [g]\n"
              "Attempting to parse equals expression at line 1: != e and f in [g]\n"
              "Parsed (boolean expression): a == b and c exists or d != e and f in [g]\n"
              "    parse tree: or(and(equals(a,b),exists(c)),and(not(equals(d,e)),in(f,[g])))\n",
              output.text());
}
