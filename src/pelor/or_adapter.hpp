// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_OR_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_OR_ADAPTER_HPP

#include "pelor/parser.hpp"

#include <utility>

namespace pelor {

// Ordered choice: matches `A` if it can, and otherwise tries `B` from the same
// starting position. The first alternative that matches wins, even when the
// other would match more; `B` is not tried then. Nothing is memoised: an
// abandoned alternative is simply forgotten, and whatever its actions did
// stays done.
template <class A, class B>
class or_adapter : public parser<or_adapter<A, B>> {
public:
    or_adapter(A left, B right) : left_(std::move(left)), right_(std::move(right)) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return attempt(left_, pos, end) || attempt(right_, pos, end);
    }

private:
    // Matches `alternative` from the starting position, which it leaves
    // alone unless the alternative matches.
    template <class Alternative, class Iterator>
    static bool attempt(const Alternative& alternative, Iterator& pos, Iterator end) {
        return detail::all_or_nothing(pos,
                                      [&alternative, end](Iterator& cursor) { return alternative.match(cursor, end); });
    }

    A left_;
    B right_;
};

// `a | b` is the choice of a, or else b. Longer choices nest to the left as
// written, with the first alternative innermost: a | b | c is
// or_adapter<or_adapter<a, b>, c>.
template <class A, class B>
or_adapter<A, B> operator|(const parser<A>& left, const parser<B>& right) {
    return or_adapter<A, B>(left.derived(), right.derived());
}

} // namespace pelor

#endif
