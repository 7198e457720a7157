// SPDX-License-Identifier: MIT
#ifndef QXQR_UTF8_HPP
#define QXQR_UTF8_HPP

#include <cstddef>
#include <string>

namespace qxqr {

// File names are bytes, and nothing makes them UTF-8. These tell where they
// are not, by the rules of well-formed UTF-8: a lead byte followed by the
// right number of continuation bytes, no overlong form, no surrogate, no
// code point beyond U+10FFFF (the rules JSON writers enforce too).

// The length (1 to 4) of the well-formed character that starts at
// `position` of `text`, or 0 if the bytes there do not form one.
std::size_t utf8CharacterLength(const std::string& text, std::size_t position);

bool isValidUtf8(const std::string& text);

} // namespace qxqr

#endif
