// SPDX-License-Identifier: MIT
#ifndef QXQR_LINTDIRECTIVES_HPP
#define QXQR_LINTDIRECTIVES_HPP

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace qxqr {

// A comment line that is meant as a directive and turns off less than it
// says: one that is not of the directive's form, or one name in it that is
// no check.
struct DirectiveFault {
    long line;
    std::string message;
};

// The checks that a script turns off for one rule, with a comment line
// right before the rule's first line:
//     % qxqr-lint: disable=prefix-surprise,fixed-exists
// Nothing but blanks may follow the names. A comment is what the language
// ignores anyway, so the directive changes nothing for the library. The
// text's line starts are found once, so that asking for every warning of a
// long script reads it only once.
class ScriptDirectives {
public:
    // `text` is the script's text, which must outlive this object.
    explicit ScriptDirectives(const std::string& text);

    // The checks turned off for the rule whose first line is `firstLine`,
    // counted from 1.
    std::set<std::string> disabledBefore(long firstLine) const;

    // Every comment line that begins with "qxqr-lint:" and has not the
    // directive's form (it turns nothing off), and every name in a
    // directive that is none of `checks`, in the order of the text.
    std::vector<DirectiveFault> faults(const std::vector<std::string>& checks) const;

private:
    // Line `number` (from 1) without its line end; empty past the end.
    std::string lineOf(long number) const;
    // The names a directive line turns off, in order; none for a line that
    // is no directive.
    static std::optional<std::vector<std::string>> namesOf(const std::string& line);

    const std::string* text_;
    std::vector<std::string::size_type> lineStarts_;
};

} // namespace qxqr

#endif
