#include "LintDirectives.hpp"

#include <regex>

namespace qxqr {

namespace {

// Line `number` of `text` (from 1), without its line end; empty when the
// text has fewer lines.
std::string lineOf(const std::string& text, long number)
{
    std::string::size_type start = 0;
    for (long line = 1; line < number; ++line) {
        start = text.find('\n', start);
        if (start == std::string::npos)
            return std::string();
        ++start;
    }
    const std::string::size_type end = text.find('\n', start);
    std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

} // namespace

std::set<std::string> checksDisabledBefore(const std::string& text, long firstLine)
{
    static const std::regex directive(R"(^[ \t]*%[ \t]*qxqr-lint:[ \t]*disable=([a-z-]+(,[a-z-]+)*)[ \t]*$)");
    std::set<std::string> disabled;
    std::smatch match;
    // The matcher takes stack for every character it repeats over, and no
    // directive is that long.
    const std::string::size_type longestDirective = 4096;
    const std::string line = firstLine > 1 ? lineOf(text, firstLine - 1) : std::string();
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
