// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTMESSAGE_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTMESSAGE_HPP

#include "grammar/ParserImpl.hpp"
#include "pelor/parser.hpp"

#include <iostream>
#include <string>
#include <utility>

namespace QuorelScript {

// In debug-verbose mode, reports on standard output that the parser has
// reached a point of the grammar, with the rest of the current line. It
// matches the empty text, always, so it reports whether or not what follows
// it matches.
//
// It is a parser of the empty text rather than an action on one because an
// action sees only the text its subject matched, and the rest of the line
// needs the end of the input too: it ends at a line end, at a NUL, or where
// the input ends, which need not be at either.
class DebugPrintMessage : public pelor::parser<DebugPrintMessage> {
public:
    DebugPrintMessage(const ParserImpl& parser, std::string message) : parser_(&parser), message_(std::move(message)) {}

    template <class Iterator>
    bool match(Iterator& here, Iterator end) const {
        if (!parser_->debugVerbose())
            return true;
        std::string restOfLine;
        for (Iterator next = here; next != end && *next != '\n' && *next != '\0'; ++next)
            restOfLine += *next;
        std::cout << message_ << " at line " << parser_->lineCount() << ": " << restOfLine << std::endl;
        return true;
    }

private:
    const ParserImpl* parser_;
    std::string message_;
};

} // namespace QuorelScript

#endif
