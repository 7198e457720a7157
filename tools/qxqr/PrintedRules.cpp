// SPDX-License-Identifier: MIT
#include "PrintedRules.hpp"

#include <sstream>

namespace qxqr {

namespace {

// Removes `prefix` from the front of `line`, if it is there.
bool consume(std::string& line, const std::string& prefix) {
    if (line.compare(0, prefix.size(), prefix) != 0)
        return false;
    line.erase(0, prefix.size());
    return true;
}

// "[a,b]" into ["a","b"]; a comma cannot stand in a path, so it always
// separates two of them.
nlohmann::json splitPathList(const std::string& list) {
    nlohmann::json paths = nlohmann::json::array();
    std::istringstream items(list.substr(1, list.size() - 2));
    std::string item;
    while (std::getline(items, item, ','))
        paths.push_back(item);
    return paths;
}

// "[paths] if condition": the list ends at the first "] if ", since ']'
// cannot stand in a path either.
nlohmann::json readIncludeRule(const std::string& rest) {
    const std::string separator = "] if ";
    std::string::size_type end = rest.find(separator);
    if (end == std::string::npos)
        return {{"paths", nlohmann::json::array()}, {"condition", rest}};
    return {{"paths", splitPathList(rest.substr(0, end + 1))}, {"condition", rest.substr(end + separator.size())}};
}

} // namespace

nlohmann::json readPrintedRules(const std::string& printed) {
    nlohmann::json rules = {
        {"exclude", nlohmann::json::array()}, {"prune", nlohmann::json::array()}, {"include", nlohmann::json::array()}};
    std::istringstream lines(printed);
    std::string line;
    while (std::getline(lines, line)) {
        if (consume(line, "\texclude if "))
            rules["exclude"].push_back(line);
        else if (consume(line, "\tprune if "))
            rules["prune"].push_back(line);
        else if (consume(line, "\tinclude "))
            rules["include"].push_back(readIncludeRule(line));
    }
    return rules;
}

} // namespace qxqr
