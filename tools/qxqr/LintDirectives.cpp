// SPDX-License-Identifier: MIT
#include "LintDirectives.hpp"

#include "NearestName.hpp"

#include <algorithm>
#include <regex>

namespace qxqr {

ScriptDirectives::ScriptDirectives(const std::string& text) : text_(&text), lineStarts_{0} {
    for (std::string::size_type end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1))
        lineStarts_.push_back(end + 1);
}

std::string ScriptDirectives::lineOf(long number) const {
    if (number < 1 || static_cast<std::size_t>(number) > lineStarts_.size())
        return std::string();
    const std::string::size_type start = lineStarts_[static_cast<std::size_t>(number - 1)];
    const std::string::size_type end = text_->find('\n', start);
    std::string line = text_->substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::optional<std::vector<std::string>> ScriptDirectives::namesOf(const std::string& line) {
    static const std::regex directive(R"(^[ \t]*%[ \t]*qxqr-lint:[ \t]*disable=([a-z-]+(,[a-z-]+)*)[ \t]*$)");
    std::smatch match;
    // The matcher takes stack for every character it repeats over, and no
    // directive is that long.
    const std::string::size_type longestDirective = 4096;
    if (line.size() > longestDirective || !std::regex_match(line, match, directive))
        return std::nullopt;
    const std::string names = match[1].str();
    std::vector<std::string> split;
    std::string::size_type start = 0;
    while (start <= names.size()) {
        const std::string::size_type comma = names.find(',', start);
        const std::string::size_type end = comma == std::string::npos ? names.size() : comma;
        split.push_back(names.substr(start, end - start));
        start = end + 1;
    }
    return split;
}

std::set<std::string> ScriptDirectives::disabledBefore(long firstLine) const {
    const std::optional<std::vector<std::string>> names = namesOf(lineOf(firstLine - 1));
    return names ? std::set<std::string>(names->begin(), names->end()) : std::set<std::string>();
}

std::vector<DirectiveFault> ScriptDirectives::faults(const std::vector<std::string>& checks) const {
    static const std::string blanks = " \t", mark = "qxqr-lint:";
    std::vector<DirectiveFault> faults;
    for (long number = 1; static_cast<std::size_t>(number) <= lineStarts_.size(); ++number) {
        const std::string line = lineOf(number);
        const std::string::size_type percent = line.find_first_not_of(blanks);
        if (percent == std::string::npos || line[percent] != '%')
            continue;
        const std::string::size_type word = line.find_first_not_of(blanks, percent + 1);
        if (word == std::string::npos || line.compare(word, mark.size(), mark) != 0)
            continue;
        const std::optional<std::vector<std::string>> names = namesOf(line);
        if (!names) {
            faults.push_back({number, "not a directive, which is '% qxqr-lint: disable=NAME[,NAME...]' with "
                                      "nothing after the names: it turns nothing off"});
            continue;
        }
        for (const std::string& name : *names) {
            if (std::find(checks.begin(), checks.end(), name) != checks.end())
                continue;
            const std::optional<std::string> nearest = nearestName(name, checks);
            faults.push_back({number, "the directive names no check '" + name + "', which it does not turn off" +
                                          (nearest ? "; did you mean " + *nearest + "?" : std::string())});
        }
    }
    return faults;
}

} // namespace qxqr
