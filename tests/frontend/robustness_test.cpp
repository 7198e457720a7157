// SPDX-License-Identifier: MIT
// Bad input never crashes and never leaks: every text gives either a rule set
// or exactly one syntax-error message.
#include "ExampleScript.hpp"
#include "rules/ParsedRules.hpp"

#include <qxqrscript/Parser.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using QuorelScript::ParsedRules;
using QuorelScript::Parser;
using QuorelScript::Rules;

namespace {

const char* const messageStart = "Syntax error in quorel rules script (<anonymous script>) at line ";

// Parses `text` both ways on one parser and checks that each parse either
// succeeds silently or reports one syntax error and gives nothing. True when
// the text was accepted.
bool expectRuleSetOrSyntaxError(Parser& parser, const std::string& text) {
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    std::unique_ptr<Rules> rules(parser.parse(text.c_str()));
    if (rules) {
        EXPECT_EQ("", errors.str()) << text;
    } else {
        EXPECT_EQ(0u, errors.str().find(messageStart)) << text;
        EXPECT_EQ(errors.str().find(messageStart, 1), std::string::npos) << text;
    }
    ParsedRules into(new QuorelScript::ExcludeRuleList, new QuorelScript::PruneRuleList,
                     new QuorelScript::IncludeRuleList);
    errors.str("");
    parser.parse(&into, text.c_str());
    EXPECT_EQ(rules != nullptr, errors.str().empty()) << text;
    parser.setErrorSink(nullptr);
    return rules != nullptr;
}

const char* const validScripts[] = {
    exampleScript,
    "exclude if \"a b\" not in [c, \"d e\"] and (true or f exists)\r\n"
    "% comment ...\r\n"
    "  continued comment\r\n"
    "prune if not (not (g == h))\r\n",
    "include x if y exists",
};

} // namespace

TEST(Robustness, EveryPrefixOfAValidScript) {
    Parser parser;
    for (const std::string script : validScripts)
        for (std::size_t length = 0; length <= script.size(); ++length)
            expectRuleSetOrSyntaxError(parser, script.substr(0, length));
}

TEST(Robustness, ValidScriptsAreAccepted) {
    Parser parser;
    for (const char* script : validScripts) {
        std::unique_ptr<Rules> rules(parser.parse(script));
        EXPECT_NE(nullptr, rules) << script;
    }
}

TEST(Robustness, RandomBytes) {
    const std::string alphabet = "abexiy \t\n\r%.\"[]()$=!,/*?#\\:_-~\x80\xff";
    std::mt19937 random(20240521);
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::uniform_int_distribution<std::size_t> length(0, 40);
    Parser parser;
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (std::size_t n = length(random); n > 0; --n)
            text += alphabet[pick(random)];
        expectRuleSetOrSyntaxError(parser, text);
    }
}

TEST(Robustness, RandomBytesOfEveryValue) {
    std::mt19937 random(4242);
    std::uniform_int_distribution<int> byte(1, 255);
    std::uniform_int_distribution<std::size_t> length(0, 60);
    Parser parser;
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (std::size_t n = length(random); n > 0; --n)
            text += static_cast<char>(byte(random));
        expectRuleSetOrSyntaxError(parser, text);
    }
}

TEST(Robustness, RandomWords) {
    const std::vector<std::string> words = {"exclude", "include", "prune",  "if",   "unless", "not",  "in",    "not in",
                                            "and",     "or",      "exists", "==",   "!=",     "true", "false", "a",
                                            "$x",      "\"q r\"", "[",      "]",    ",",      "(",    ")",     " ",
                                            " ",       "\t",      "\n",     "\r\n", "...",    "%",    "..."};
    std::mt19937 random(77);
    std::uniform_int_distribution<std::size_t> pick(0, words.size() - 1);
    std::uniform_int_distribution<std::size_t> length(0, 24);
    Parser parser;
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        for (std::size_t n = length(random); n > 0; --n)
            text += words[pick(random)];
        accepted += expectRuleSetOrSyntaxError(parser, text);
    }
    EXPECT_GT(accepted, 0);
}
