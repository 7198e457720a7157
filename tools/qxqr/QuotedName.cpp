// SPDX-License-Identifier: MIT
#include "QuotedName.hpp"

#include "Utf8.hpp"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace qxqr {

namespace {

enum class Kind { ordinary, singleQuote, special };

// A stretch of the name whose characters all quote the same way.
struct Run {
    Kind kind;
    std::string bytes;
};

bool isControl(const std::string& name, std::size_t position, std::size_t length) {
    unsigned char first = static_cast<unsigned char>(name[position]);
    if (length == 1)
        return first < 0x20 || first == 0x7F;
    // U+0080 to U+009F are C2 80 to C2 9F.
    return length == 2 && first == 0xC2 && static_cast<unsigned char>(name[position + 1]) < 0xA0;
}

std::vector<Run> runsOf(const std::string& name) {
    std::vector<Run> runs;
    for (std::size_t position = 0; position < name.size();) {
        std::size_t length = utf8CharacterLength(name, position);
        Kind kind = Kind::ordinary;
        if (length == 0 || isControl(name, position, length))
            kind = Kind::special;
        else if (name[position] == '\'')
            kind = Kind::singleQuote;
        length = length == 0 ? 1 : length; // a stray byte stands alone
        if (runs.empty() || runs.back().kind != kind)
            runs.push_back({kind, std::string()});
        runs.back().bytes.append(name, position, length);
        position += length;
    }
    return runs;
}

std::string escaped(char byte) {
    switch (byte) {
    case '\a':
        return "\\a";
    case '\b':
        return "\\b";
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\v':
        return "\\v";
    case '\f':
        return "\\f";
    case '\r':
        return "\\r";
    default:
        break;
    }
    char octal[5];
    std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned char>(byte));
    return octal;
}

std::string quoted(const Run& run) {
    switch (run.kind) {
    case Kind::ordinary:
        return "'" + run.bytes + "'";
    case Kind::singleQuote: {
        std::string quotes;
        for (std::size_t count = 0; count < run.bytes.size(); ++count)
            quotes += "\\'";
        return quotes;
    }
    case Kind::special:
        break;
    }
    std::string text = "$'";
    for (char byte : run.bytes)
        text += escaped(byte);
    return text + "'";
}

// Printable ASCII without a blank or a single quote, as nearly every name
// is: shown as it is, without cutting it into characters first.
bool isPlain(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char byte) { return byte > ' ' && byte < 0x7F && byte != '\''; });
}

} // namespace

std::string quotedName(const std::string& name) {
    if (!name.empty() && isPlain(name))
        return name;
    std::vector<Run> runs = runsOf(name);
    if (runs.size() == 1 && runs.front().kind == Kind::ordinary && name.find(' ') == std::string::npos)
        return name;
    if (runs.empty())
        return "''";
    std::string text;
    for (const Run& run : runs)
        text += quoted(run);
    return text;
}

std::string nameInQuotes(const std::string& name) {
    const std::string shown = quotedName(name);
    return shown == name ? "'" + name + "'" : shown;
}

} // namespace qxqr
