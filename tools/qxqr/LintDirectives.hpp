#ifndef QXQR_LINTDIRECTIVES_HPP
#define QXQR_LINTDIRECTIVES_HPP

#include <set>
#include <string>

namespace qxqr {

// The checks that a script turns off for one rule, with a comment line
// right before the rule's first line:
//     % qxqr-lint: disable=prefix-surprise,fixed-exists
// `text` is the script's text and `firstLine` the rule's first line,
// counted from 1. A comment is what the language ignores anyway, so the
// directive changes nothing for the library.
std::set<std::string> checksDisabledBefore(const std::string& text, long firstLine);

} // namespace qxqr

#endif
