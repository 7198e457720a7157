// SPDX-License-Identifier: MIT
#ifndef QXQR_STANDARDOUTPUT_HPP
#define QXQR_STANDARDOUTPUT_HPP

#include <string>

namespace qxqr {

// Writes `text` to standard output at once (flushed, so that an answer
// streamed through a pipe reaches its reader file by file). Throws Failure
// "qxqr: cannot write standard output: <reason>" when it cannot be written,
// a full disk say: an answer cut short must never pass for a whole one, and
// a command that cannot write has no reason to go on.
void writeStandardOutput(const std::string& text);

} // namespace qxqr

#endif
