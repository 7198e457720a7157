// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_ALNUM_HPP
#define QXQRSCRIPT_PELOR_ALNUM_HPP

#include "pelor/byte_classification.hpp"

#include <cctype>

namespace pelor {

// Holds for the bytes that `isalnum` accepts (see byte_classification.hpp for
// how a byte is passed): A-Z, a-z and 0-9 in the POSIX locale.
class alnum {
public:
    bool operator()(char c) const { return std::isalnum(detail::classification_code(c)) != 0; }
};

} // namespace pelor

#endif
