// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_END_OF_INPUT_HPP
#define QXQRSCRIPT_PELOR_END_OF_INPUT_HPP

#include "pelor/parser.hpp"

namespace pelor {

// Matches, consuming nothing, exactly when the position is the end position;
// being empty, it may be tried there any number of times.
class end_of_input : public parser<end_of_input> {
public:
    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return pos == end;
    }
};

} // namespace pelor

#endif
