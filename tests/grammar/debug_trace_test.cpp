// SPDX-License-Identifier: MIT
// The trace lines printed on standard output in debug-verbose mode.
#include "GrammarTesting.hpp"
#include "grammar/actions/DebugPrintMessage.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

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

// The input may end inside a line, before text that is no line end: the
// trace shows the line up to the end of the input and reads nothing beyond.
TEST(DebugTrace, RestOfLineStopsWhereTheInputEnds) {
    const std::string text = "exclude if a == b c\n";
    const char* cursor = text.c_str();
    const char* end = cursor + text.find(" c");
    ParserImpl impl;
    impl.setDebugVerbose(true);
    StreamCapture output;
    impl.matchScript(cursor, end);
    EXPECT_EQ(end, cursor);
    EXPECT_EQ("Attempting to parse equals expression at line 1: == b\n"
              "Parsed (boolean expression): a == b\n"
              "    parse tree: equals(a,b)\n",
              output.text());
}

// Input that ends neither with a line end nor with a NUL, in a buffer of
// exactly its size: reading past it would be reading past the allocation,
// which an address-checking build reports.
TEST(DebugTrace, RestOfLineNeverReadsPastTheInput) {
    const std::string script = "exclude if a == b";
    const std::unique_ptr<char[]> bytes(new char[script.size()]);
    std::memcpy(bytes.get(), script.data(), script.size());
    const char* cursor = bytes.get();
    const char* end = cursor + script.size();
    ParserImpl impl;
    impl.setDebugVerbose(true);
    StreamCapture output;
    impl.matchScript(cursor, end);
    EXPECT_EQ(end, cursor);
    EXPECT_EQ("Attempting to parse equals expression at line 1: == b\n"
              "Parsed (boolean expression): a == b\n"
              "    parse tree: equals(a,b)\n",
              output.text());
}

// The same over string iterators, where the position at the end of the
// range may not be read at all.
TEST(DebugTrace, MessageStopsWhereTheInputEndsOverStringIterators) {
    const std::string text = "== b c";
    ParserImpl impl;
    impl.setDebugVerbose(true);
    StreamCapture output;
    std::string::const_iterator here = text.begin();
    EXPECT_TRUE(QuorelScript::DebugPrintMessage(impl, "Reached").match(here, text.begin() + 4));
    EXPECT_TRUE(here == text.begin());
    EXPECT_EQ("Reached at line " + std::to_string(impl.lineCount()) + ": == b\n", output.text());
}
