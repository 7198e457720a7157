// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_FRONTEND_SYNTAXERRORREPORT_HPP
#define QXQRSCRIPT_FRONTEND_SYNTAXERRORREPORT_HPP

#include <iosfwd>
#include <string>

namespace QuorelScript {

// Writes the message for a script that stopped matching at `cursor` (a
// position in a NUL-terminated text, or null) on line `line`: a heading line
// naming the script and the line, then the offending text, then an empty line.
void reportSyntaxError(std::ostream& sink, const std::string& scriptName, int line, const char* cursor);

// Writes the line that follows the message when the statement was turned
// down because its parentheses nest deeper than `limit`.
void reportNestingTooDeep(std::ostream& sink, int limit);

} // namespace QuorelScript

#endif
