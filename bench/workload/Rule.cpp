// SPDX-License-Identifier: MIT
#include "Rule.hpp"

namespace qxqr::bench {

namespace {

const char* variableText(FileVariable variable) {
    switch (variable) {
    case FileVariable::dir:
        return "$dir";
    case FileVariable::name:
        return "$name";
    case FileVariable::ext:
        return "$ext";
    case FileVariable::file:
        break;
    }
    return "$file";
}

const char* keyword(RuleKind kind) {
    switch (kind) {
    case RuleKind::prune:
        return "prune";
    case RuleKind::include:
        return "include";
    case RuleKind::exclude:
        break;
    }
    return "exclude";
}

// "[a, b]": a bracketed list, which (unlike a bare one) may stand before
// `and` and `if`.
std::string listText(const std::vector<std::string>& paths) {
    std::string text = "[";
    for (const std::string& path : paths) {
        if (text.size() > 1)
            text += ", ";
        text += path;
    }
    return text + "]";
}

std::string testText(const Test& test) {
    std::string text = test.negated ? "not " : "";
    text += variableText(test.variable);
    if (test.comparison == Comparison::equals)
        return text + " == " + test.paths.front();
    return text + " in " + listText(test.paths);
}

std::string conditionText(const std::vector<Test>& condition) {
    std::string text;
    for (const Test& test : condition) {
        if (!text.empty())
            text += " and ";
        text += testText(test);
    }
    return text;
}

} // namespace

std::string statementText(const Rule& rule) {
    std::string text = keyword(rule.kind);
    if (rule.kind == RuleKind::include)
        text += " " + listText(rule.includes);
    return text + " if " + conditionText(rule.condition);
}

std::string scriptText(const std::vector<Rule>& rules) {
    std::string text;
    for (std::size_t index = 0; index < rules.size(); ++index) {
        if (index % 10 == 0)
            text += "% rules " + std::to_string(index + 1) + " and on\n";
        text += statementText(rules[index]) + "\n";
    }
    return text;
}

} // namespace qxqr::bench
