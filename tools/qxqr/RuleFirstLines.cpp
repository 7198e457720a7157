// SPDX-License-Identifier: MIT
#include "RuleFirstLines.hpp"

#include <algorithm>
#include <cctype>
#include <deque>
#include <string_view>

namespace qxqr {

namespace {

using QuorelScript::Observe::Rule;
using QuorelScript::Observe::RuleKind;

const std::string_view::size_type nowhere = std::string_view::npos;

// A script's text as the grammar reads it, up to the NUL that ends it for
// the library. Each `after` gives the position after what it names starting
// at `at`, or nowhere when that does not start there.
class GrammarText {
public:
    explicit GrammarText(const std::string& text) : text(text.c_str()) {}

    std::string_view::size_type size() const { return text.size(); }

    // "\r\n" or '\n'.
    std::string_view::size_type afterNewline(std::string_view::size_type at) const {
        if (text.compare(at, 2, "\r\n") == 0)
            return at + 2;
        return at < text.size() && text[at] == '\n' ? at + 1 : nowhere;
    }

    // A blank character, or "..." and blank characters, then a line end
    // or a comment.
    std::string_view::size_type afterBlank(std::string_view::size_type at) const {
        if (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
            return at + 1;
        const std::string_view::size_type dotsEnd = afterDots(at);
        if (dotsEnd == nowhere)
            return nowhere;
        if (afterNewline(dotsEnd) != nowhere)
            return afterNewline(dotsEnd);
        return holds(dotsEnd, '%') ? afterComment(dotsEnd) : nowhere;
    }

    std::string_view::size_type afterBlanks(std::string_view::size_type at) const {
        for (std::string_view::size_type next = afterBlank(at); next != nowhere; next = afterBlank(at))
            at = next;
        return at;
    }

    // '%' and all to the line end, or to the end of the text. A "..." and
    // blank characters before the line end continue the comment onto the
    // next line; before a '%' they open a comment within it, after whose
    // line end the outer one goes on. Counted rather than recursed into,
    // however many are open.
    std::string_view::size_type afterComment(std::string_view::size_type at) const {
        std::size_t open = 1;
        ++at;
        while (at < text.size()) {
            const std::string_view::size_type dotsEnd = afterDots(at);
            if (dotsEnd != nowhere && afterNewline(dotsEnd) != nowhere) {
                at = afterNewline(dotsEnd);
            } else if (dotsEnd != nowhere && holds(dotsEnd, '%')) {
                at = dotsEnd + 1;
                ++open;
            } else if (text[at++] == '\n' && --open == 0) {
                break;
            }
        }
        return at;
    }

    // The word at `at`, as far as letters go.
    std::string_view wordAt(std::string_view::size_type at) const {
        std::string_view::size_type end = at;
        while (end < text.size() && std::isalpha(static_cast<unsigned char>(text[end])))
            ++end;
        return text.substr(at, end - at);
    }

    bool holds(std::string_view::size_type at, char c) const { return at < text.size() && text[at] == c; }

    bool holds(std::string_view::size_type at, const std::string& part) const {
        return text.compare(at, part.size(), part) == 0;
    }

    // How many line ends lie from `from` to `to`.
    long lineEnds(std::string_view::size_type from, std::string_view::size_type to) const {
        return static_cast<long>(std::count(text.begin() + static_cast<std::ptrdiff_t>(from),
                                            text.begin() + static_cast<std::ptrdiff_t>(to), '\n'));
    }

private:
    // "..." and blank characters.
    std::string_view::size_type afterDots(std::string_view::size_type at) const {
        if (text.compare(at, 3, "...") != 0)
            return nowhere;
        at += 3;
        while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
            ++at;
        return at;
    }

    std::string_view text;
};

// The rules of one kind not yet placed, in order.
using Unplaced = std::map<std::pair<std::string, RuleKind>, std::deque<const Rule*>>;

bool kindNamed(std::string_view word, RuleKind& kind) {
    static const std::pair<std::string_view, RuleKind> kinds[] = {
        {"exclude", RuleKind::Exclude}, {"prune", RuleKind::Prune}, {"include", RuleKind::Include}};
    for (const auto& [name, named] : kinds)
        if (word == name) {
            kind = named;
            return true;
        }
    return false;
}

// Places the statements of one script, each an element of the script
// (statement, comment line or blank line) as the grammar tries them. Stops
// at a statement it finds no such rule for.
void placeStatements(const ScriptText& script, Unplaced& unplaced, FirstLines& lines) {
    const GrammarText text(script.text);
    std::string_view::size_type at = 0;
    std::string_view::size_type counted = 0; // the lines before it are in `line`
    long line = 1;
    while (at < text.size()) {
        const std::string_view::size_type start = text.afterBlanks(at);
        if (text.holds(start, '%')) {
            at = text.afterComment(start);
            continue;
        }
        if (start == text.size() || text.afterNewline(start) != nowhere) {
            at = start == text.size() ? start : text.afterNewline(start);
            continue;
        }
        RuleKind kind;
        if (!kindNamed(text.wordAt(start), kind))
            return;
        std::deque<const Rule*>& ofKind = unplaced[{script.name, kind}];
        if (ofKind.empty() || !text.holds(at, ofKind.front()->text))
            return;
        const Rule* rule = ofKind.front();
        ofKind.pop_front();
        line += text.lineEnds(counted, at);
        counted = at;
        lines[rule] = line;
        at = text.afterBlanks(at + rule->text.size());
        if (text.holds(at, '%'))
            at = text.afterComment(at);
        else if (at < text.size())
            at = text.afterNewline(at);
    }
}

} // namespace

FirstLines firstLinesOf(const ScriptTexts& texts, const std::vector<Rule>& rules) {
    Unplaced unplaced;
    for (const Rule& rule : rules)
        unplaced[{rule.script, rule.kind}].push_back(&rule);
    FirstLines lines;
    for (const ScriptText& script : texts)
        placeStatements(script, unplaced, lines);
    return lines;
}

} // namespace qxqr
