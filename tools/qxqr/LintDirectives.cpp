// SPDX-License-Identifier: MIT
#include "LintDirectives.hpp"

#include <regex>

namespace qxqr {

ScriptDirectives::ScriptDirectives(const std::string& text) : text_(&text), lineStarts_{0}
{
    for (std::string::size_type end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1))
        lineStarts_.push_back(end + 1);
}

std::string ScriptDirectives::lineOf(long number) const
{
    if (number < 1 || static_cast<std::size_t>(number) > lineStarts_.size())
        return std::string();
    const std::string::size_type start = lineStarts_[static_cast<std::size_t>(number - 1)];
    const std::string::size_type end = text_->find('\n', start);
    std::string line = text_->substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::set<std::string> ScriptDirectives::disabledBefore(long firstLine) const
{
    static const std::regex directive(R"(^[ \t]*%[ \t]*qxqr-lint:[ \t]*disable=([a-z-]+(,[a-z-]+)*)[ \t]*$)");
    std::set<std::string> disabled;
    std::smatch match;
    // The matcher takes stack for every character it repeats over, and no
    // directive is that long.
    const std::string::size_type longestDirective = 4096;
    const std::string line = lineOf(firstLine - 1);
    if (line.size() > longestDirective || !std::regex_match(line, match, directive))
        return disabled;
    const std::string names = match[1].str();
    std::string::size_type start = 0;
    while (start <= names.size()) {
        const std::string::size_type comma = names.find(',', start);
        const std::string::size_type end = comma == std::string::npos ? names.size() : comma;
        disabled.insert(names.substr(start, end - start));
        start = end + 1;
    }
    return disabled;
}

} // namespace qxqr
