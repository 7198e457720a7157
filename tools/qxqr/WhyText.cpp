// SPDX-License-Identifier: MIT
#include "WhyText.hpp"

#include "ConditionDisplay.hpp"
#include "QuotedName.hpp"
#include "Verdict.hpp"

#include <utility>
#include <vector>

namespace qxqr {

namespace {

namespace Observe = QuorelScript::Observe;

// The rule's place and its text on one line: continuation lines joined.
std::string heading(const Observe::Rule& rule) {
    if (rule.script.empty() && rule.line == 0)
        return rule.recordedText;
    std::string text;
    for (std::size_t i = 0; i < rule.text.size(); ++i) {
        if (rule.text[i] != '\n') {
            text += rule.text[i];
            continue;
        }
        while (i + 1 < rule.text.size() && (rule.text[i + 1] == ' ' || rule.text[i + 1] == '\t'))
            ++i;
        text += ' ';
    }
    return rule.script + ":" + std::to_string(rule.line) + ": " + text;
}

std::string mark(const Observe::NodeValue& value, const Palette& palette) {
    if (!value.evaluated)
        return palette.unasked + "-     " + palette.reset;
    return value.value ? palette.holds + "true  " + palette.reset : palette.fails + "false " + palette.reset;
}

std::string pathLine(const Observe::Node& node, const Observe::NodeValue& value, bool matched) {
    std::string line = "      " + node.text;
    if (value.evaluated && value.text != node.text)
        line += " = " + quotedName(value.text);
    if (matched)
        line += "  <- matches";
    return line;
}

// The condition as an indented tree, one node a line, from a work list.
std::string conditionText(const Observe::Condition& condition, const std::vector<Observe::NodeValue>& values,
                          const Palette& palette, const std::string& indent) {
    struct Pending {
        std::size_t index;
        std::size_t depth;
        bool matched;
    };
    std::string text;
    std::vector<Pending> pending{{0, 0, false}};
    while (!pending.empty()) {
        const Pending item = pending.back();
        pending.pop_back();
        const Observe::Node& node = condition.nodes[item.index];
        const Observe::NodeValue& value = values[item.index];
        text += indent + std::string(2 * item.depth, ' ');
        if (node.kind == Observe::NodeKind::Path)
            text += pathLine(node, value, item.matched) + "\n";
        else
            text += mark(value, palette) + nodeName(node) + "\n";
        const std::vector<std::size_t> operands = shownOperands(condition, item.index);
        for (std::size_t i = operands.size(); i-- > 0;)
            pending.push_back(
                {operands[i], item.depth + 1, node.kind == Observe::NodeKind::In && value.matchedElement == i});
    }
    return text;
}

// "a directory", "a pattern" or "a plain path".
std::string expansionPhrase(Observe::Expansion expansion) {
    return "a " + expansionName(expansion) + (expansion == Observe::Expansion::Plain ? " path" : "");
}

std::string includedText(const Observe::RuleTrace& rule, const std::string& indent) {
    std::string text;
    for (std::size_t i = 0; i < rule.included.size(); ++i) {
        const auto& included = rule.included[i];
        text += indent + "path " + rule.rule.paths[i].text;
        if (included.text != rule.rule.paths[i].text)
            text += " = " + quotedName(included.text);
        text += ", " + expansionPhrase(included.expansion) + "\n";
        for (const std::string& file : included.files)
            text += indent + "  includes " + quotedName(file) + "\n";
    }
    return text;
}

std::string ruleText(const Observe::RuleTrace& rule, bool decides, const Palette& palette) {
    const std::string indent = "      ";
    if (!rule.evaluated)
        return palette.unasked + "    " + heading(rule.rule) + palette.reset + "\n" + indent + palette.unasked +
               "not evaluated" + palette.reset + "\n";
    std::string text = decides ? palette.deciding + "    " + heading(rule.rule) + "  <- decides" + palette.reset + "\n"
                               : "    " + heading(rule.rule) + "\n";
    return text + conditionText(rule.rule.condition, rule.values, palette, indent) + includedText(rule, indent);
}

// "$file = src/a.c, $mode (not bound)" on one line, or nothing when the
// rules refer to no variable.
std::string variablesText(const std::vector<ShownVariable>& variables) {
    if (variables.empty())
        return "";
    std::string text = "    variables: ";
    for (std::size_t i = 0; i < variables.size(); ++i) {
        text += (i == 0 ? "$" : ", $") + variables[i].name;
        text += variables[i].value ? " = " + quotedName(*variables[i].value) : " (not bound)";
    }
    return text + "\n";
}

std::string questionText(const std::string& question, const std::string& answer, const Observe::QueryTrace& trace,
                         const char* kind, const WhyVariables& variables, const Palette& palette) {
    std::string text = "  " + question + ": " + answer + "\n" + variablesText(variables.shown(trace));
    if (trace.rules.empty())
        text += std::string("    no ") + kind + " rules\n";
    for (std::size_t i = 0; i < trace.rules.size(); ++i)
        text += ruleText(trace.rules[i], i == trace.decidingRule, palette);
    return text;
}

std::string includesAnswer(const Observe::QueryTrace& trace) {
    std::size_t files = 0;
    for (const Observe::RuleTrace& rule : trace.rules)
        for (const auto& included : rule.included)
            files += included.files.size();
    return files == 1 ? "1 file" : std::to_string(files) + " files";
}

} // namespace

std::string whyText(const FileTraces& traces, const WhyVariables& variables, const Palette& palette) {
    return quotedName(traces.file) + ": " + verdict(traces.excluded.answer, traces.pruned.answer) + "\n" +
           questionText("excluded", traces.excluded.answer ? "yes" : "no", traces.excluded, "exclude", variables,
                        palette) +
           questionText("pruned", traces.pruned.answer ? "yes" : "no", traces.pruned, "prune", variables, palette) +
           questionText("includes", includesAnswer(traces.includes), traces.includes, "include", variables, palette);
}

} // namespace qxqr
