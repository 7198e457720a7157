// SPDX-License-Identifier: MIT
#include "SyntaxHint.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <optional>
#include <regex>
#include <vector>

namespace qxqr {

namespace {

// A mended line and what the hint says about it.
struct Mending {
    std::string line;
    std::string hint;
};

using Pitfall = std::function<std::optional<Mending>(const std::string& line)>;

// The line as the report shows it: the first line of the offending text,
// which follows the report's first line.
std::string offendingLine(const std::string& report) {
    const std::string::size_type start = report.find('\n');
    if (start == std::string::npos)
        return std::string();
    const std::string::size_type end = report.find('\n', start + 1);
    std::string line = report.substr(start + 1, end == std::string::npos ? std::string::npos : end - start - 1);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

// Whether `line`, followed by a line end, is a complete script.
bool parses(const std::string& line) {
    QuorelScript::Parser parser;
    const std::string text = line + "\n";
    return std::unique_ptr<QuorelScript::Rules>(parser.parse(text.c_str())) != nullptr;
}

// The line with the first match of `pattern` replaced by `replacement`
// (in std::regex's format), if the pattern matches.
std::optional<std::string> replacedFirst(const std::string& line, const std::regex& pattern,
                                         const std::string& replacement) {
    if (!std::regex_search(line, pattern))
        return std::nullopt;
    return std::regex_replace(line, pattern, replacement, std::regex_constants::format_first_only);
}

// The line itself, if it ends in a keyword that needs a character after it.
std::optional<Mending> keywordAtEndOfText(const std::string& line) {
    static const std::regex pattern(R"(\b(true|false|in|not|if|unless)$)");
    if (!std::regex_search(line, pattern))
        return std::nullopt;
    return Mending{line, "a keyword at the very end of the text is not recognised: end the last line with a "
                         "line end"};
}

std::optional<Mending> bareIncludeList(const std::string& line) {
    static const std::regex pattern(
        R"(^([ \t]*include[ \t]+)([^[ \t,]+([ \t]*,[ \t]*[^ \t,]+)+)([ \t]+(if|unless)\b))");
    std::smatch match;
    if (!std::regex_search(line, match, pattern))
        return std::nullopt;
    const std::string list = "[" + match[2].str() + "]";
    return Mending{match.prefix().str() + match[1].str() + list + match[4].str() + match.suffix().str(),
                   "an include rule's list of several paths is written in brackets: " + list};
}

std::optional<Mending> notInWithSeveralBlanks(const std::string& line) {
    static const std::regex pattern(R"(\bnot([ \t]{2,}|\t)in\b)");
    const std::optional<std::string> mended = replacedFirst(line, pattern, "not in");
    if (!mended)
        return std::nullopt;
    return Mending{*mended, "'not in' is written with exactly one blank between the two words"};
}

std::optional<Mending> blankBeforeClosingBracket(const std::string& line) {
    static const std::regex pattern(R"(\[[ \t]*([^ \t,\]]+)[ \t]+\])");
    std::smatch match;
    if (!std::regex_search(line, match, pattern))
        return std::nullopt;
    const std::string list = "[" + match[1].str() + "]";
    return Mending{match.prefix().str() + list + match.suffix().str(),
                   "no blank may stand before ']' after a list's first path: write " + list};
}

const std::vector<std::string> keywords = {"exclude", "prune", "include", "if",     "unless", "and",
                                           "or",      "not",   "in",      "exists", "true",   "false"};

bool isKeyword(const std::string& word) {
    return std::find(keywords.begin(), keywords.end(), word) != keywords.end();
}

std::optional<Mending> upperCaseKeyword(const std::string& line) {
    static const std::regex word(R"([A-Za-z]+)");
    std::string mended = line;
    std::string first;
    for (auto it = std::sregex_iterator(line.begin(), line.end(), word); it != std::sregex_iterator(); ++it) {
        std::string lower = it->str();
        for (char& c : lower)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (lower == it->str() || !isKeyword(lower))
            continue;
        mended.replace(static_cast<std::string::size_type>(it->position()), lower.size(), lower);
        if (first.empty())
            first = "write '" + lower + "' for '" + it->str() + "'";
    }
    if (first.empty())
        return std::nullopt;
    return Mending{mended, "keywords are lower case: " + first};
}

std::optional<Mending> doubleNot(const std::string& line) {
    static const std::regex pattern(R"(\bnot[ \t]+not[ \t]+)");
    const std::optional<std::string> mended = replacedFirst(line, pattern, "");
    if (!mended)
        return std::nullopt;
    return Mending{*mended, "'not' applies to one atom and cannot follow another 'not': write not (not x)"};
}

std::optional<Mending> literalOnTheLeft(const std::string& line) {
    static const std::regex pattern(R"(\b(true|false)([ \t]*(==|!=|exists\b|in\b|not in\b)))");
    std::smatch match;
    if (!std::regex_search(line, match, pattern))
        return std::nullopt;
    const std::string literal = match[1].str();
    return Mending{match.prefix().str() + "\"" + literal + "\"" + match[2].str() + match.suffix().str(),
                   literal +
                       " is a literal, never the path on the left of a comparison; a path of that name is "
                       "quoted: \"" +
                       literal + "\""};
}

std::optional<Mending> emptyQuotedPath(const std::string& line) {
    static const std::regex pattern(R"("")");
    const std::optional<std::string> mended = replacedFirst(line, pattern, "\"x\"");
    if (!mended)
        return std::nullopt;
    return Mending{*mended, "a quoted path cannot be empty"};
}

bool isPathCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || std::string("_$/\\:.#?*").find(c) != std::string::npos;
}

// The spans (start, end) of the runs of two or more words of path
// characters that blanks alone part, none of the words a keyword: where a
// path was read and ended at its first blank.
std::vector<std::pair<std::size_t, std::size_t>> blankPartedWords(const std::string& line) {
    std::vector<std::pair<std::size_t, std::size_t>> runs;
    std::optional<std::pair<std::size_t, std::size_t>> run;
    std::size_t words = 0;
    const auto close = [&] {
        if (run && words >= 2)
            runs.push_back(*run);
        run.reset();
        words = 0;
    };
    for (std::size_t at = 0; at < line.size();) {
        if (!isPathCharacter(line[at])) {
            const std::size_t next = line.find_first_not_of(" \t", at);
            if (next == at || next == std::string::npos || !isPathCharacter(line[next]))
                close();
            at = next == at ? at + 1 : next;
            continue;
        }
        std::size_t end = at;
        while (end < line.size() && isPathCharacter(line[end]))
            ++end;
        if (isKeyword(line.substr(at, end - at))) {
            close();
        } else {
            run = run ? std::make_pair(run->first, end) : std::make_pair(at, end);
            ++words;
        }
        at = end;
    }
    close();
    return runs;
}

// A path that holds blanks, unquoted: on the right of == or != (taken to
// the end of the line), or wherever a path is read (each run of words that
// blanks part, in turn); the first quoting that makes the line parse.
std::optional<Mending> unquotedBlank(const std::string& line) {
    static const std::regex afterEquals(R"((==|!=)([ \t]*)([^ \t"%]+([ \t]+[^ \t"%]+)+))");
    std::vector<std::string> quoted;
    if (const std::optional<std::string> mended = replacedFirst(line, afterEquals, "$1$2\"$3\""))
        quoted.push_back(*mended);
    for (const auto& [start, end] : blankPartedWords(line))
        quoted.push_back(line.substr(0, start) + "\"" + line.substr(start, end - start) + "\"" + line.substr(end));
    for (const std::string& mended : quoted)
        if (parses(mended))
            return Mending{mended, "a path that holds blanks is written in double quotes"};
    return std::nullopt;
}

// "0xe9"
std::string hexadecimal(unsigned char byte) {
    static const char digits[] = "0123456789abcdef";
    return std::string("0x") + digits[byte >> 4] + digits[byte & 0xf];
}

// A tab between double quotes: a quoted path may hold spaces, never a tab,
// and outside quotes a tab ends the path, so no path holds one. Mended with
// a space in its place.
std::optional<Mending> tabInQuotedPath(const std::string& line) {
    bool quoted = false;
    for (std::string::size_type i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else if (!quoted && line[i] == '%')
            return std::nullopt;
        else if (quoted && line[i] == '\t') {
            std::string mended = line;
            mended[i] = ' ';
            return Mending{mended, "a quoted path may hold spaces but not a tab, which no path can hold"};
        }
    }
    return std::nullopt;
}

// A character that no path can hold, quoted or not: any but letters,
// digits, the path punctuation and what the language itself writes. A tab
// is a blank between the parts of a rule; in a quoted path it is taken by
// tabInQuotedPath first.
std::optional<Mending> characterOutsidePaths(const std::string& line) {
    static const std::string allowed = "_$/\\:.#?*\"[],()=! \t%";
    const std::string::size_type comment = line.find('%');
    for (std::string::size_type i = 0; i < line.size() && i < comment; ++i) {
        const unsigned char c = static_cast<unsigned char>(line[i]);
        if (std::isalnum(c) || allowed.find(line[i]) != std::string::npos)
            continue;
        std::string mended = line;
        mended[i] = '_';
        const std::string shown = c < 0x20 || c >= 0x7f ? "the byte " + hexadecimal(c) : "'" + line.substr(i, 1) + "'";
        return Mending{mended, shown + " cannot appear in a path, quoted or not"};
    }
    return std::nullopt;
}

// The pitfalls are looked for with the standard regular expressions, whose
// matcher takes stack for every character it repeats over: a longer line
// gets no hint, rather than a crash.
const std::string::size_type longestLineHinted = 4096;

} // namespace

std::string syntaxHint(const std::string& report) {
    static const std::vector<Pitfall> pitfalls = {
        keywordAtEndOfText, bareIncludeList, notInWithSeveralBlanks, blankBeforeClosingBracket,
        upperCaseKeyword,   doubleNot,       literalOnTheLeft,       emptyQuotedPath,
        unquotedBlank,      tabInQuotedPath, characterOutsidePaths};
    const std::string line = offendingLine(report);
    if (line.empty() || line.size() > longestLineHinted)
        return std::string();
    for (const Pitfall& pitfall : pitfalls) {
        const std::optional<Mending> mending = pitfall(line);
        if (mending && parses(mending->line))
            return "hint: " + mending->hint + "\n";
    }
    return std::string();
}

} // namespace qxqr
