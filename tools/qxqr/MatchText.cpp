#include "MatchText.hpp"

#include <regex>
#include <sstream>

namespace qxqr {

std::string MatchText::indented(const std::string& indent) const
{
    std::istringstream lines(whole);
    std::string result;
    std::string line;
    while (std::getline(lines, line)) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        result += indent + line + "\n";
    }
    return result;
}

nlohmann::json MatchText::toJson() const
{
    static const std::regex heading("^([^\\n]*), line ([0-9]+): \\n");
    std::smatch parts;
    if (!std::regex_search(whole, parts, heading))
        return {{"script", nullptr}, {"line", nullptr}, {"text", whole}};
    return {{"script", parts[1].str()}, {"line", std::stol(parts[2].str())}, {"text", parts.suffix().str()}};
}

nlohmann::json MatchText::toJson(const std::optional<std::string>& text)
{
    return text ? MatchText(*text).toJson() : nlohmann::json(nullptr);
}

} // namespace qxqr
