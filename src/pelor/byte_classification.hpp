// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_BYTE_CLASSIFICATION_HPP
#define QXQRSCRIPT_PELOR_BYTE_CLASSIFICATION_HPP

namespace pelor::detail {

// The argument a byte is classified by: the byte taken as a signed char and
// widened to int. Bytes of 0x80 and above therefore reach the classification
// functions as negative values, for which the C library's tables say "no" in
// the POSIX locale: they are neither letters, nor digits, nor word characters.
inline int classification_code(char byte) {
    return static_cast<int>(static_cast<signed char>(byte));
}

} // namespace pelor::detail

#endif
