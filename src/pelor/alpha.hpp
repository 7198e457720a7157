// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_ALPHA_HPP
#define QXQRSCRIPT_PELOR_ALPHA_HPP

#include "pelor/byte_classification.hpp"

#include <cctype>

namespace pelor {

// Holds for the bytes that `isalpha` accepts (see byte_classification.hpp for
// how a byte is passed): A-Z and a-z in the POSIX locale.
class alpha {
public:
    bool operator()(char c) const { return std::isalpha(detail::classification_code(c)) != 0; }
};

} // namespace pelor

#endif
