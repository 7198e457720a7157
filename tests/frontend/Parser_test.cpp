// SPDX-License-Identifier: MIT
#include "FrontendTesting.hpp"

#include "StreamCapture.hpp"
#include "grammar/ParserImpl.hpp"
#include "rules/ParsedRules.hpp"

#include <qxqrscript/Parser.hpp>

#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <sstream>
#include <string>

using namespace FrontendTesting;
using QuorelScript::ParsedRules;
using QuorelScript::Parser;
using QuorelScript::Rules;

namespace {

std::unique_ptr<ParsedRules> emptyRuleSet() {
    return std::unique_ptr<ParsedRules>(new ParsedRules(
        new QuorelScript::ExcludeRuleList, new QuorelScript::PruneRuleList, new QuorelScript::IncludeRuleList));
}

// "prune if" and `levels` nested pairs of parentheses around a condition.
std::string pruneNested(int levels) {
    return "prune if " + std::string(levels, '(') + "a exists" + std::string(levels, ')');
}

const char* const nestingMessage = "The condition nests deeper than 50 levels.\n";

} // namespace

TEST(Parser, EmptyTextGivesARuleSetWithoutRulesAndNoMessage) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    std::unique_ptr<Rules> rules(parser.parse(""));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("", printed(*rules));
    EXPECT_EQ("", errors.str());
}

TEST(Parser, EmptyTextAddsNothingToARuleSet) {
    Parser parser;
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    parser.parse(rules.get(), "");
    EXPECT_EQ("\n\n\n", printed(*rules));
}

TEST(Parser, ScriptsCombineWhateverKindsOfRulesTheyHold) {
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse("% only a comment\n"));
    ASSERT_NE(nullptr, rules);
    parser.parse(rules.get(), "include [a] if b exists\nexclude if c exists\n");
    EXPECT_EQ("\texclude if exists(c)\n"
              "\n"
              "\tinclude [a] if exists(b)\n"
              "\n",
              printed(*rules));
}

TEST(Parser, SyntaxErrorOnTheThirdLine) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    EXPECT_EQ(nullptr, parser.parse("exclude if true\n% fine\nexclude if tru\nexclude if false\n"));
    EXPECT_EQ("Syntax error in quorel rules script (<anonymous script>) at line 3:\nexclude if tru\n\n", errors.str());
}

TEST(Parser, SyntaxErrorOnTheLastLineWithoutLineEnd) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    EXPECT_EQ(nullptr, parser.parse("\nexclude if true"));
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 2, "exclude if true"), errors.str());
}

TEST(Parser, ScriptNameAppearsInTheMessage) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.setScriptName("my rules.qr");
    parser.parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("my rules.qr", 1, "bad"), errors.str());
}

// A "\r\n" anywhere in the rest of the text is looked for before a '\n'.
TEST(Parser, OffendingTextRunsToALaterCarriageReturnLineFeed) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.parse("exclude if true\nbad\nexclude if true\r\nmore\n");
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 2, "bad\nexclude if true"), errors.str());
}

TEST(Parser, OffendingTextOfACarriageReturnLineFeedScript) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.parse("exclude if true\r\nbad\r\nexclude if true\r\n");
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 2, "bad"), errors.str());
}

TEST(Parser, ErrorsAreCapturedUntilARealSinkIsSet) {
    Parser parser;
    parser.parse("first bad\n");
    parser.setScriptName("s");
    parser.parse("\nsecond bad\n");
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, "first bad") + syntaxErrorMessage("s", 2, "second bad"),
              errors.str());
}

TEST(Parser, CapturedErrorsGoToStandardErrorWhenItBecomesTheSink) {
    const qxqr::StreamCapture standardError(std::cerr);
    Parser parser;
    parser.parse("bad\n");
    EXPECT_EQ("", standardError.text());
    parser.setErrorSink(&std::cerr);
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, "bad"), standardError.text());
}

TEST(Parser, CapturedErrorsAreHandedOverOnce) {
    Parser parser;
    parser.parse("bad\n");
    std::ostringstream first;
    std::ostringstream second;
    parser.setErrorSink(&first);
    parser.setErrorSink(&second);
    parser.setErrorSink(nullptr);
    parser.setErrorSink(&second);
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, "bad"), first.str());
    EXPECT_EQ("", second.str());
}

TEST(Parser, NullSinkSilencesLaterErrorsAgain) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.setErrorSink(nullptr);
    parser.parse("bad\n");
    EXPECT_EQ("", errors.str());
    std::ostringstream later;
    parser.setErrorSink(&later);
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, "bad"), later.str());
}

// The rules of the good lines of a failed parse go with the next parse that
// matches completely, ahead of its own.
TEST(Parser, RulesOfAFailedParseCarryOverToTheNextGoodOne) {
    Parser parser;
    EXPECT_EQ(nullptr, parser.parse("exclude if a exists\nbad\n"));
    std::unique_ptr<Rules> rules(parser.parse("exclude if b exists\n"));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if exists(a)\n\texclude if exists(b)\n\n", printed(*rules));
    std::unique_ptr<Rules> next(parser.parse("prune if c exists\n"));
    EXPECT_EQ("\tprune if exists(c)\n\n", printed(*next));
}

TEST(Parser, CarriedOverRulesAlsoGoIntoACallersRuleSet) {
    Parser parser;
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    parser.parse(rules.get(), "prune if a exists\nbad\n");
    EXPECT_EQ("\n\n\n", printed(*rules));
    parser.parse(rules.get(), "prune if b exists\n");
    EXPECT_EQ("\n\tprune if exists(a)\n\tprune if exists(b)\n\n\n", printed(*rules));
}

TEST(Parser, RulesAppendedToACallersRuleSetAfterItsOwn) {
    Parser parser;
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    parser.parse(rules.get(), "exclude if a exists\ninclude i if true\nprune if p exists\n");
    parser.parse(rules.get(), "prune if q exists\nexclude if b exists\n");
    EXPECT_EQ("\texclude if exists(a)\n\texclude if exists(b)\n\n"
              "\tprune if exists(p)\n\tprune if exists(q)\n\n"
              "\tinclude [i] if true\n\n",
              printed(*rules));
}

TEST(Parser, NewRuleSetHasOnlyTheListsTheScriptUsed) {
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse("include i if true\n"));
    EXPECT_EQ("\tinclude [i] if true\n\n", printed(*rules));
}

TEST(Parser, EachNewRuleSetStartsAfreshAfterAHandOver) {
    Parser parser;
    std::unique_ptr<Rules> first(parser.parse("exclude if a exists\n"));
    std::unique_ptr<Rules> second(parser.parse("exclude if b exists\n"));
    EXPECT_EQ("\texclude if exists(a)\n\n", printed(*first));
    EXPECT_EQ("\texclude if exists(b)\n\n", printed(*second));
}

TEST(Parser, TextEndsAtItsTerminator) {
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse("exclude if true\n\0garbage"));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if true\n\n", printed(*rules));
}

TEST(Parser, DebugVerboseFlag) {
    Parser parser;
    EXPECT_FALSE(parser.getDebugVerbose());
    parser.setDebugVerbose(true);
    EXPECT_TRUE(parser.getDebugVerbose());
}

TEST(Parser, VerboseParseRestoresTheFlag) {
    const qxqr::StreamCapture output;
    Parser parser;
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    parser.parse(rules.get(), "exclude if true\n", true);
    EXPECT_FALSE(parser.getDebugVerbose());
    parser.setDebugVerbose(true);
    std::unique_ptr<Rules> quiet(parser.parse("exclude if false\n", false));
    EXPECT_TRUE(parser.getDebugVerbose());
    EXPECT_EQ("Parsed (boolean expression): true\n    parse tree: true\n", output.text());
}

// An exception that leaves a verbose parse (here from the trace output)
// still restores the flag, and leaks nothing.
TEST(Parser, VerboseParseRestoresTheFlagWhenAnExceptionPasses) {
    Parser parser;
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    {
        ThrowingStandardOutput throwing;
        EXPECT_THROW(parser.parse(rules.get(), "exclude if a exists\n", true), std::ios_base::failure);
    }
    EXPECT_FALSE(parser.getDebugVerbose());
    {
        ThrowingStandardOutput throwing;
        EXPECT_THROW(parser.parse("exclude if a exists\n", true), std::ios_base::failure);
    }
    EXPECT_FALSE(parser.getDebugVerbose());
}

namespace {

// Counts the flushes of the stream it serves.
class FlushCounter : public std::stringbuf {
public:
    int flushes = 0;

protected:
    int sync() override {
        ++flushes;
        return std::stringbuf::sync();
    }
};

} // namespace

TEST(Parser, ErrorMessageFlushesAtEachOfItsThreeLineEnds) {
    FlushCounter buffer;
    std::ostream sink(&buffer);
    Parser parser;
    parser.setErrorSink(&sink);
    parser.parse("bad\n");
    EXPECT_EQ(3, buffer.flushes);
}

TEST(Parser, ParenthesesNestedDeeperThanTheLimitAreASyntaxErrorThatSaysSo) {
    ASSERT_EQ(50, QuorelScript::ParserImpl::nestingLimit);
    const std::string tooDeep = pruneNested(QuorelScript::ParserImpl::nestingLimit + 1);
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    EXPECT_EQ(nullptr, parser.parse(("exclude if true\n" + tooDeep + "\nexclude if false\n").c_str()));
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 2, tooDeep) + nestingMessage, errors.str());
}

TEST(Parser, ParenthesesNestedToTheLimitAreAccepted) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    std::unique_ptr<Rules> rules(parser.parse((pruneNested(QuorelScript::ParserImpl::nestingLimit) + "\n").c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\tprune if exists(a)\n\n", printed(*rules));
    EXPECT_EQ("", errors.str());
}

TEST(Parser, ParenthesesNestedTooDeepAddNothingToACallersRuleSet) {
    const std::string tooDeep = pruneNested(QuorelScript::ParserImpl::nestingLimit + 1);
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    std::unique_ptr<ParsedRules> rules = emptyRuleSet();
    parser.parse(rules.get(), "prune if b exists\n");
    parser.parse(rules.get(), (tooDeep + "\n").c_str());
    EXPECT_EQ("\n\tprune if exists(b)\n\n\n", printed(*rules));
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, tooDeep) + nestingMessage, errors.str());
}

// Each parse says only what stopped it.
TEST(Parser, OnlyAParseThatNestedTooDeepSaysSo) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    parser.parse((pruneNested(QuorelScript::ParserImpl::nestingLimit + 1) + "\n").c_str());
    errors.str("");
    parser.parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("<anonymous script>", 1, "bad"), errors.str());
}
