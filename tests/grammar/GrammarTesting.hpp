// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_GRAMMAR_GRAMMARTESTING_HPP
#define QXQRSCRIPT_TESTS_GRAMMAR_GRAMMARTESTING_HPP

#include "StreamCapture.hpp"
#include "grammar/ParserImpl.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace GrammarTesting {

const char* const syntaxError = "<syntax error>";

// The printed rule set that a fresh parser makes of `text`, or syntaxError
// when the text does not match completely.
inline std::string printed(const std::string& text) {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse(text.c_str()));
    if (!rules)
        return syntaxError;
    std::ostringstream out;
    out << rules.get();
    return out.str();
}

// The printed rule set of a script made of the single exclude rule
// "exclude if <condition>" and a line end.
inline std::string excludeIf(const std::string& condition) {
    return printed("exclude if " + condition + "\n");
}

// What a rule set holding the one exclude rule with `condition` prints.
inline std::string excluding(const std::string& condition) {
    return "\texclude if " + condition + "\n\n";
}

// Runs the grammar of `impl` over the whole of `text`; true when it matched
// to the end.
inline bool matchAll(QuorelScript::ParserImpl& impl, const std::string& text) {
    const char* cursor = text.c_str();
    const char* end = cursor + text.size();
    impl.matchScript(cursor, end);
    return cursor == end;
}

// The debug texts of the rules of kind R that `impl` has collected.
template <class R>
std::vector<std::string> ruleNames(QuorelScript::ParserImpl& impl) {
    std::vector<std::string> names;
    if (const auto* list = impl.rules<R>().list())
        for (const R* rule : *list)
            names.push_back(rule->debugInfo);
    return names;
}

// Collects what is written to standard output while it exists.
using qxqr::StreamCapture;

} // namespace GrammarTesting

#endif
