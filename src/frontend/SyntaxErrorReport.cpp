// SPDX-License-Identifier: MIT
#include "frontend/SyntaxErrorReport.hpp"

#include <cstring>
#include <ostream>

namespace QuorelScript {

namespace {

// The text from `cursor` up to the end of its line. A "\r\n" is looked for
// in the whole rest of the text before a lone '\n' is, so a text with '\n'
// line ends that has a "\r\n" further on yields everything up to that one.
std::string offendingText(const char* cursor) {
    if (cursor == nullptr)
        return "<source unavailable>";
    const char* lineEnd = std::strstr(cursor, "\r\n");
    if (lineEnd == nullptr)
        lineEnd = std::strchr(cursor, '\n');
    if (lineEnd == nullptr)
        return cursor;
    return std::string(cursor, lineEnd);
}

} // namespace

void reportSyntaxError(std::ostream& sink, const std::string& scriptName, int line, const char* cursor) {
    sink << "Syntax error in quorel rules script (" << scriptName << ") at line " << line << ":" << std::endl
         << offendingText(cursor) << std::endl
         << std::endl;
}

void reportNestingTooDeep(std::ostream& sink, int limit) {
    sink << "The condition nests deeper than " << limit << " levels." << std::endl;
}

} // namespace QuorelScript
