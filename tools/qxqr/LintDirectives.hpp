// SPDX-License-Identifier: MIT
#ifndef QXQR_LINTDIRECTIVES_HPP
#define QXQR_LINTDIRECTIVES_HPP

#include <set>
#include <string>
#include <vector>

namespace qxqr {

// The checks that a script turns off for one rule, with a comment line
// right before the rule's first line:
//     % qxqr-lint: disable=prefix-surprise,fixed-exists
// A comment is what the language ignores anyway, so the directive changes
// nothing for the library. The text's line starts are found once, so that
// asking for every warning of a long script reads it only once.
class ScriptDirectives {
public:
    // `text` is the script's text, which must outlive this object.
    explicit ScriptDirectives(const std::string& text);

    // The checks turned off for the rule whose first line is `firstLine`,
    // counted from 1.
    std::set<std::string> disabledBefore(long firstLine) const;

private:
    // Line `number` (from 1) without its line end; empty past the end.
    std::string lineOf(long number) const;

    const std::string* text_;
    std::vector<std::string::size_type> lineStarts_;
};

} // namespace qxqr

#endif
