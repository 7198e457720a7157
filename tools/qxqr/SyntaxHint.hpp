// SPDX-License-Identifier: MIT
#ifndef QXQR_SYNTAXHINT_HPP
#define QXQR_SYNTAXHINT_HPP

#include <string>

namespace qxqr {

// One "hint: ..." line for the line that a syntax-error report names, when
// that line fails for a pitfall of the language that people often meet (a
// keyword that ends the text, a bare list of paths, an upper-case keyword,
// a character that no path may hold, ...). A hint is offered only when the
// line, mended as the hint says, parses: so it never guesses at an error
// it cannot fix. Empty when no known pitfall explains the line. The
// library's report itself is left as it is; the hint follows it.
std::string syntaxHint(const std::string& report);

} // namespace qxqr

#endif
