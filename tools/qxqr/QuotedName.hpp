// SPDX-License-Identifier: MIT
#ifndef QXQR_QUOTEDNAME_HPP
#define QXQR_QUOTEDNAME_HPP

#include <string>

namespace qxqr {

// A file's name as text output shows it. A name is a line's worth of bytes
// that may hold anything but NUL: a line end would forge a line of its own,
// a terminal's control sequence would rewrite the screen, and a blank would
// let a name pass for what the answer writes around names (a leading blank
// for an include line, ": kept" for a verdict). So a name is shown as it is
// unless it is empty or holds a control character (below space, DEL, or
// U+0080 to U+009F), a byte that is not UTF-8, a single quote or a space;
// such a name is quoted as a POSIX shell reads it back: ordinary
// characters between single quotes, each single quote as \', each run of
// other bytes as $'...' with \a \b \t \n \v \f \r for those controls and a
// three-digit octal escape (\351) for any other byte. The name "a.o", line
// end, "b.c" is shown as 'a.o'$'\n''b.c'.
std::string quotedName(const std::string& name);

// A name as a message shows it, always between quotes: 'a.rules', or the
// quoted name where it needs quoting.
std::string nameInQuotes(const std::string& name);

} // namespace qxqr

#endif
