// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_EPSILON_HPP
#define QXQRSCRIPT_PELOR_EPSILON_HPP

#include "pelor/parser.hpp"

namespace pelor {

// Always matches, consuming nothing, the end of input included. Its use is to
// carry an action, which then runs whenever matching reaches that point.
class epsilon : public parser<epsilon> {
public:
    // Declared, so that from C++20 on epsilon is no aggregate: epsilon{} then
    // runs this constructor, which may call the base's protected one, where
    // aggregate initialization would call it from the caller's side.
    epsilon() = default;

    template <class Iterator>
    bool match(Iterator&, Iterator) const {
        return true;
    }
};

} // namespace pelor

#endif
