// SPDX-License-Identifier: MIT
#include <qxqrscript/FileReader.hpp>

#include "frontend/readWholeFile.hpp"

#include <string>

namespace QuorelScript {

FileReader::FileReader() = default;

void FileReader::read(Rules* rules, const char* file) {
    std::string contents;
    if (rules == nullptr || !readWholeFile(file, contents))
        return;
    parser.setScriptName(file);
    parser.parse(rules, contents.c_str());
}

Rules* FileReader::read(const char* file) {
    std::string contents;
    if (!readWholeFile(file, contents))
        return nullptr;
    parser.setScriptName(file);
    return parser.parse(contents.c_str());
}

Parser& FileReader::getParser() {
    return parser;
}

const Parser& FileReader::getParser() const {
    return parser;
}

} // namespace QuorelScript
