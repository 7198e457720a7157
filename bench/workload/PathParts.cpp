// SPDX-License-Identifier: MIT
#include "PathParts.hpp"

#include <cctype>

namespace qxqr::bench {

namespace {

bool isNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

bool startsVariable(const std::string& path, std::size_t at) {
    return path[at] == '$' && at + 1 < path.size() && std::isalpha(static_cast<unsigned char>(path[at + 1]));
}

void appendText(std::vector<PathPart>& parts, char c) {
    if (parts.empty() || parts.back().isVariable)
        parts.push_back({false, std::string()});
    parts.back().text += c;
}

} // namespace

std::vector<PathPart> pathParts(const std::string& path) {
    std::vector<PathPart> parts;
    std::size_t at = 0;
    while (at < path.size()) {
        if (!startsVariable(path, at)) {
            appendText(parts, path[at++]);
            continue;
        }
        std::size_t end = at + 1;
        while (end < path.size() && isNameCharacter(path[end]))
            ++end;
        parts.push_back({true, path.substr(at + 1, end - at - 1)});
        at = end;
    }
    return parts;
}

} // namespace qxqr::bench
