// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PARSER_HPP
#define QXQRSCRIPT_PARSER_HPP

#include <qxqrscript/version.hpp>

#include <iosfwd>

namespace QuorelScript {

class Rules;
class ParserImpl;

// Turns the text of a rules script into a rule set. Syntax errors are written
// as text to the error sink; until a sink is set they are kept inside the
// parser and shown by the first setErrorSink with a real stream.
// A null text is taken as the empty text.
class QXQRSCRIPT_API Parser {
public:
    Parser();
    ~Parser();
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    // Appends the script's rules to `rules`, which must be a rule set made by
    // this library. On a syntax error nothing is added. A null `rules` makes
    // the call do nothing: the text is not parsed.
    void parse(Rules* rules, const char* text);
    // As above, with the debug trace switched to `verbose` for this call only.
    void parse(Rules* rules, const char* text, bool verbose);
    // A new rule set owned by the caller, or null on a syntax error.
    Rules* parse(const char* text);
    Rules* parse(const char* text, bool verbose);

    // The name that syntax-error messages give the script; null names it "".
    void setScriptName(const char* name);
    // When on, parsing traces what it recognises on standard output.
    void setDebugVerbose(bool on);
    bool getDebugVerbose() const;
    // Where syntax errors go; null keeps them inside the parser again.
    // The stream is not owned and must outlive its use.
    void setErrorSink(std::ostream* sink);

private:
    ParserImpl* impl;
};

} // namespace QuorelScript

#endif
