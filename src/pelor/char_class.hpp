// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_CHAR_CLASS_HPP
#define QXQRSCRIPT_PELOR_CHAR_CLASS_HPP

#include "pelor/parser.hpp"

namespace pelor {

// Matches one byte for which `Predicate` holds. It needs a byte before the
// predicate is asked anything, so it fails at the end of input whatever the
// predicate, a negated one included.
template <class Predicate>
class char_class : public parser<char_class<Predicate>> {
public:
    explicit char_class(const Predicate& predicate = Predicate()) : predicate_(predicate) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        if (pos == end || !predicate_(*pos)) {
            return false;
        }
        ++pos;
        return true;
    }

private:
    Predicate predicate_;
};

} // namespace pelor

#endif
