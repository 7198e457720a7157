// SPDX-License-Identifier: MIT
#include "DynamicStringTokens.hpp"

#include <cctype>
#include <filesystem>

namespace qxqr {

namespace {

bool continuesName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

// The length of the token `name` written at `position` just after a '$',
// as NAME or {NAME}; 0 when another name, or a longer one, stands there.
std::size_t tokenLength(const std::string& text, std::size_t position, const std::string& name) {
    if (text.compare(position, name.size() + 2, "{" + name + "}") == 0)
        return name.size() + 2;
    if (text.compare(position, name.size(), name) != 0)
        return 0;
    std::size_t end = position + name.size();
    return end < text.size() && continuesName(text[end]) ? 0 : name.size();
}

} // namespace

std::optional<std::string> DynamicStringTokens::expand(const std::string& text) const {
    const std::pair<std::string, const std::string*> tokens[] = {
        {"ORIGIN", &origin}, {"LIB", &lib}, {"PLATFORM", &platform}};
    std::string expanded;
    std::size_t position = 0;
    while (position < text.size()) {
        std::size_t dollar = text.find('$', position);
        expanded.append(text, position, dollar == std::string::npos ? std::string::npos : dollar - position);
        if (dollar == std::string::npos)
            break;
        position = dollar + 1;
        std::size_t length = 0;
        for (const auto& [name, value] : tokens) {
            length = tokenLength(text, position, name);
            if (length == 0)
                continue;
            if (value->empty())
                return std::nullopt;
            expanded += *value;
            break;
        }
        if (length == 0)
            expanded += '$';
        position += length;
    }
    return expanded;
}

std::vector<std::string> DynamicStringTokens::directories(const std::string& list, const char* separators) const {
    std::vector<std::string> result;
    std::size_t start = 0;
    while (true) {
        std::size_t colon = list.find_first_of(separators, start);
        std::string entry = list.substr(start, colon == std::string::npos ? std::string::npos : colon - start);
        std::optional<std::string> directory = expand(entry.empty() ? "." : entry);
        if (directory)
            result.push_back(*directory);
        if (colon == std::string::npos)
            return result;
        start = colon + 1;
    }
}

std::string originOf(const std::string& path) {
    std::filesystem::path absolute = std::filesystem::absolute(path);
    return absolute.parent_path().string();
}

} // namespace qxqr
