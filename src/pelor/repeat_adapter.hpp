// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_REPEAT_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_REPEAT_ADAPTER_HPP

#include "pelor/parser.hpp"

namespace pelor {

// Repetition: matches `E` as many times as it can, up to `Max` times (`Max` of
// -1: no limit), and succeeds if that was at least `Min` times.
//
// It is greedy and never gives an iteration back for the sake of what
// follows. It does not check that an iteration consumed anything, so an
// operand that can match empty text must not be repeated without a limit:
// that would loop forever. A rule reference as operand asks its rule for the
// body again at each iteration, and a rule without a body ends the loop.
template <class E, int Min, int Max>
class repeat_adapter : public parser<repeat_adapter<E, Min, Max>> {
    static_assert(Min >= 0, "a repetition cannot match fewer than zero times");
    static_assert(Max == -1 || (Max > 0 && Max >= Min),
                  "a repetition's limit must be -1, or positive and at least its minimum");

public:
    explicit repeat_adapter(const E& operand) : operand_(operand) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return detail::all_or_nothing(pos, [this, end](Iterator& cursor) {
            int count = 0;
            while (count != Max && operand_.match(cursor, end)) {
                ++count;
            }
            return count >= Min;
        });
    }

private:
    E operand_;
};

// `repeat<Min, Max>(e)`: e from Min to Max times, Max of -1 meaning no limit.
template <int Min, int Max, class E>
repeat_adapter<E, Min, Max> repeat(const parser<E>& operand) {
    return repeat_adapter<E, Min, Max>(operand.derived());
}

template <class E>
repeat_adapter<E, 0, -1> zero_or_more(const parser<E>& operand) {
    return repeat<0, -1>(operand);
}

template <class E>
repeat_adapter<E, 1, -1> one_or_more(const parser<E>& operand) {
    return repeat<1, -1>(operand);
}

template <class E>
repeat_adapter<E, 0, 1> optional(const parser<E>& operand) {
    return repeat<0, 1>(operand);
}

} // namespace pelor

#endif
