// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_AND_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_AND_ADAPTER_HPP

#include "pelor/parser.hpp"

#include <utility>

namespace pelor {

// Sequence: matches `A`, then `B` from where `A` stopped. Both run on a local
// position, which reaches the caller only when both have matched; a failing
// `B` thus leaves the caller where it was before `A`.
template <class A, class B>
class and_adapter : public parser<and_adapter<A, B>> {
public:
    and_adapter(A left, B right) : left_(std::move(left)), right_(std::move(right)) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return detail::all_or_nothing(
            pos, [this, end](Iterator& cursor) { return left_.match(cursor, end) && right_.match(cursor, end); });
    }

private:
    A left_;
    B right_;
};

// `a >> b` is the sequence of a and b. Longer sequences nest to the left as
// written: a >> b >> c is and_adapter<and_adapter<a, b>, c>.
template <class A, class B>
and_adapter<A, B> operator>>(const parser<A>& left, const parser<B>& right) {
    return and_adapter<A, B>(left.derived(), right.derived());
}

} // namespace pelor

#endif
