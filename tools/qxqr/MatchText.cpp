// SPDX-License-Identifier: MIT
#include "MatchText.hpp"

#include <sstream>

namespace qxqr {

std::string MatchText::indented(const std::string& indent) const {
    std::istringstream lines(whole);
    std::string result;
    std::string line;
    while (std::getline(lines, line)) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        result += indent + line + "\n";
    }
    return result;
}

// The heading is "SCRIPT, line N: " and a line end. A rule's text may be
// as long as the script, so it is taken apart by hand: a regular
// expression's matcher would take stack for every character.
nlohmann::json MatchText::toJson() const {
    static const std::string lineWord = ", line ";
    const std::string::size_type lineEnd = whole.find('\n');
    const std::string::size_type headingEnd =
        lineEnd == std::string::npos || lineEnd < 2 ? std::string::npos : lineEnd - 2;
    const std::string::size_type word = headingEnd != std::string::npos && whole.compare(headingEnd, 2, ": ") == 0
                                            ? whole.rfind(lineWord, headingEnd)
                                            : std::string::npos;
    const std::string::size_type digits = word == std::string::npos ? word : word + lineWord.size();
    if (digits == std::string::npos || digits == headingEnd ||
        whole.find_first_not_of("0123456789", digits) != headingEnd)
        return {{"script", nullptr}, {"line", nullptr}, {"text", whole}};
    return {{"script", whole.substr(0, word)},
            {"line", std::stol(whole.substr(digits, headingEnd - digits))},
            {"text", whole.substr(lineEnd + 1)}};
}

nlohmann::json MatchText::toJson(const std::optional<std::string>& text) {
    return text ? MatchText(*text).toJson() : nlohmann::json(nullptr);
}

} // namespace qxqr
