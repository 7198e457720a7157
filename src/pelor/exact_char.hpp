// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_EXACT_CHAR_HPP
#define QXQRSCRIPT_PELOR_EXACT_CHAR_HPP

#include "pelor/char_class.hpp"

namespace pelor {

// Holds for the one byte equal to its character. A character converts to it.
class exact_char {
public:
    exact_char(char expected) : expected_(expected) {}

    bool operator()(char c) const { return c == expected_; }

private:
    char expected_;
};

// The parser matching the single byte `c`.
inline char_class<exact_char> ch(char c) {
    return char_class<exact_char>(exact_char(c));
}

} // namespace pelor

#endif
