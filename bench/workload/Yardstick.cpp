// SPDX-License-Identifier: MIT
#include "Yardstick.hpp"

#include "PathParts.hpp"

#include <map>

namespace qxqr::bench {

Yardstick::Yardstick(const std::vector<Rule>& rules, const Settings& settings) {
    for (const Rule& rule : rules) {
        switch (rule.kind) {
        case RuleKind::exclude:
            excludes.push_back(resolved(rule.condition, settings));
            break;
        case RuleKind::prune:
            prunes.push_back(resolved(rule.condition, settings));
            break;
        case RuleKind::include:
            includes.push_back({resolved(rule.condition, settings), {}});
            for (const std::string& included : rule.includes)
                includes.back().paths.push_back(pieces(included, settings));
            break;
        }
    }
}

bool Yardstick::isExcluded(std::string_view file) const {
    return anyHolds(excludes, file);
}

bool Yardstick::isPruned(std::string_view file) const {
    return anyHolds(prunes, file);
}

Yardstick::Condition Yardstick::resolved(const std::vector<Test>& condition, const Settings& settings) {
    Condition tests;
    for (const Test& test : condition) {
        tests.push_back({test.variable, test.comparison, {}, test.negated});
        for (const std::string& written : test.paths)
            tests.back().paths.push_back(withHostValues(written, settings));
    }
    return tests;
}

// The file's own variables become pieces filled in per query; any other
// variable left after the host's values are in has no value and stays as
// written, as the library leaves it.
Yardstick::PathPieces Yardstick::pieces(const std::string& path, const Settings& settings) {
    static const std::map<std::string, FileVariable> fileVariables = {{"file", FileVariable::file},
                                                                      {"dir", FileVariable::dir},
                                                                      {"name", FileVariable::name},
                                                                      {"ext", FileVariable::ext}};
    PathPieces result;
    for (const PathPart& part : pathParts(withHostValues(path, settings))) {
        auto variable = part.isVariable ? fileVariables.find(part.text) : fileVariables.end();
        if (variable != fileVariables.end())
            result.push_back({variable->second, std::string()});
        else
            result.push_back({std::nullopt, part.isVariable ? "$" + part.text : part.text});
    }
    return result;
}

bool Yardstick::holds(const ResolvedTest& test, const FileParts& parts) {
    const std::string_view value = parts[test.variable];
    bool found = false;
    for (const std::string& path : test.paths) {
        found = test.comparison == Comparison::equals ? value == path : value.substr(0, path.size()) == path;
        if (found)
            break;
    }
    return found != test.negated;
}

bool Yardstick::holds(const Condition& condition, const FileParts& parts) {
    for (const ResolvedTest& test : condition) {
        if (!holds(test, parts))
            return false;
    }
    return true;
}

bool Yardstick::anyHolds(const std::vector<Condition>& conditions, std::string_view file) {
    const FileParts parts = fileParts(file);
    for (const Condition& condition : conditions) {
        if (holds(condition, parts))
            return true;
    }
    return false;
}

void Yardstick::write(const PathPieces& pathPieces, const FileParts& parts) {
    path.clear();
    for (const PathPiece& piece : pathPieces) {
        if (piece.variable)
            path += parts[*piece.variable];
        else
            path += piece.text;
    }
}

} // namespace qxqr::bench
