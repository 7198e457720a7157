// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_WORD_CHAR_HPP
#define QXQRSCRIPT_PELOR_WORD_CHAR_HPP

#include "pelor/alnum.hpp"

namespace pelor {

// Holds for the bytes of a word: those of alnum, and the underscore.
class word_char {
public:
    bool operator()(char c) const { return alnum()(c) || c == '_'; }
};

} // namespace pelor

#endif
