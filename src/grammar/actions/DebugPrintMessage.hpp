// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTMESSAGE_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTMESSAGE_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <iostream>
#include <string>
#include <utility>

namespace QuorelScript {

// In debug-verbose mode, reports on standard output that the parser has
// reached a point of the grammar, with the rest of the current line. It is
// attached to an empty match, so it runs whether or not what follows matches.
class DebugPrintMessage : public ParserAction {
public:
    DebugPrintMessage(ParserImpl& parser, std::string message) : ParserAction(parser), message_(std::move(message)) {}

    // The rest of the line is read from the script text itself, which ends
    // with a NUL.
    template <class Iterator>
    void operator()(Iterator, Iterator here) const {
        if (!parser().debugVerbose())
            return;
        std::string restOfLine;
        for (Iterator next = here; *next != '\n' && *next != '\0'; ++next)
            restOfLine += *next;
        std::cout << message_ << " at line " << parser().lineCount() << ": " << restOfLine << std::endl;
    }

private:
    std::string message_;
};

} // namespace QuorelScript

#endif
