// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_EPSILON_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_EPSILON_ADAPTER_HPP

#include "pelor/parser.hpp"

namespace pelor {

// Positive look-ahead: matches where `E` would match, and consumes nothing
// either way. `E` runs on a scratch copy of the position, which is dropped;
// actions inside `E` do run.
//
// The usual form is a word boundary, at(char_class<not_char_predicate<word_char>>()):
// it needs a byte that is not a word character, so it fails at the end of
// input, and a keyword that ends the text is not taken for a keyword.
template <class E>
class epsilon_adapter : public parser<epsilon_adapter<E>> {
public:
    explicit epsilon_adapter(const E& operand) : operand_(operand) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        Iterator scratch = pos;
        return operand_.match(scratch, end);
    }

private:
    E operand_;
};

// `at(e)`: succeeds, without moving, where e would match.
template <class E>
epsilon_adapter<E> at(const parser<E>& operand) {
    return epsilon_adapter<E>(operand.derived());
}

} // namespace pelor

#endif
