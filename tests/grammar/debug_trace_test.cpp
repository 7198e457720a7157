// SPDX-License-Identifier: MIT
// The trace lines printed on standard output in debug-verbose mode.
#include "GrammarTesting.hpp"

#include <gtest/gtest.h>

using namespace GrammarTesting;
using QuorelScript::ParserImpl;

namespace {

// What standard output receives while `text` is parsed with the flag `verbose`.
std::string traceOf(const std::string& text, bool verbose = true) {
    ParserImpl impl;
    impl.setDebugVerbose(verbose);
    StreamCapture output;
    EXPECT_TRUE(matchAll(impl, text));
    return output.text();
}

} // namespace

TEST(DebugTrace, EqualsMessageThenTheParsedCondition) {
    EXPECT_EQ("Attempting to parse equals expression at line 1: == b\n"
              "Parsed (boolean expression): a == b\n"
              "    parse tree: equals(a,b)\n",
              traceOf("exclude if a == b\n"));
}

TEST(DebugTrace, NothingWithTheFlagClear) {
    EXPECT_EQ("", traceOf("exclude if a == b\n", false));
}

// The comparison tries "in" and "not in", then reaches the equals
// alternative, before "!=" and "exists".
TEST(DebugTrace, ExistenceTestAlsoPrintsTheEqualsMessage) {
    EXPECT_EQ("Attempting to parse equals expression at line 1: exists\n"
              "Parsed (boolean expression): a exists\n"
              "    parse tree: exists(a)\n",
              traceOf("exclude if a exists\n"));
}

TEST(DebugTrace, MessageRunsToTheEndOfTheText) {
    EXPECT_EQ("Attempting to parse equals expression at line 2: exists\n"
              "Parsed (boolean expression): a exists\n"
              "    parse tree: exists(a)\n",
              traceOf("\nexclude if a exists"));
}

// The rest of the line stops at the '\n' alone: a carriage return before it
// is printed.
TEST(DebugTrace, MessageKeepsTheCarriageReturn) {
    EXPECT_EQ("Attempting to parse equals expression at line 1: == b\r\n"
              "Parsed (boolean expression): a == b\n"
              "    parse tree: equals(a,b)\n",
              traceOf("exclude if a == b\r\n"));
}

// A failed attempt to read "not" as the path of a comparison prints too.
TEST(DebugTrace, FailedAttemptsPrintAsWell) {
    EXPECT_EQ("Attempting to parse equals expression at line 1: a exists\n"
              "Attempting to parse equals expression at line 1: exists\n"
              "Parsed (boolean expression): not a exists\n"
              "    parse tree: not(exists(a))\n",
              traceOf("exclude if not a exists\n"));
}

TEST(DebugTrace, ParsedLineShowsTheWrittenConditionAndTheWholeTree) {
    EXPECT_EQ("Parsed (boolean expression): (true or false) and ...\n true\n"
              "    parse tree: and(or(true,false),true)\n",
              traceOf("prune unless (true or false) and ...\n true\n"));
}

TEST(DebugTrace, NestedConditionsPrintTheirOwnLines) {
    EXPECT_EQ("Parsed (boolean expression): true\n"
              "    parse tree: true\n"
              "Parsed (boolean expression): false\n"
              "    parse tree: false\n",
              traceOf("exclude if true\ninclude a if false\n"));
}

TEST(DebugTrace, TraceNeverGoesToTheErrorSink) {
    QuorelScript::Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    StreamCapture output;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse("exclude if a == b\n", true));
    EXPECT_NE(nullptr, rules);
    EXPECT_EQ("", errors.str());
    EXPECT_NE("", output.text());
}
