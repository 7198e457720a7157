// SPDX-License-Identifier: MIT
#include "StreamedJsonDocument.hpp"

#include "OutputFormat.hpp"
#include "StandardOutput.hpp"

namespace qxqr {

namespace {

// jsonText of `value` for a place `depth` levels deep: every line after
// the first moved right by two spaces a level. A line end inside a JSON
// string is always escaped, so every line end is the layout's own.
std::string nestedJsonText(const nlohmann::json& value, std::size_t depth) {
    std::string text = jsonText(value);
    std::string shifted;
    shifted.reserve(text.size());
    for (char character : text) {
        shifted += character;
        if (character == '\n')
            shifted.append(2 * depth, ' ');
    }
    return shifted;
}

std::string memberName(const std::string& key) {
    return jsonText(key) + ": ";
}

} // namespace

StreamedJsonDocument::StreamedJsonDocument(const std::string& arrayKey) {
    writeStandardOutput("{\n  " + memberName(arrayKey) + "[");
}

void StreamedJsonDocument::append(const nlohmann::json& item) {
    writeStandardOutput((empty ? "\n    " : ",\n    ") + nestedJsonText(item, 2));
    empty = false;
}

void StreamedJsonDocument::finish(const nlohmann::json& closingMembers) {
    std::string text = empty ? "]" : "\n  ]";
    for (const auto& [key, value] : closingMembers.items())
        text += ",\n  " + memberName(key) + nestedJsonText(value, 1);
    writeStandardOutput(text + "\n}\n");
}

} // namespace qxqr
