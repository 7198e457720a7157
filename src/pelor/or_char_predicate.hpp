// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_OR_CHAR_PREDICATE_HPP
#define QXQRSCRIPT_PELOR_OR_CHAR_PREDICATE_HPP

namespace pelor {

// Holds for a byte when `A` or `B` holds for it; `B` is asked only when `A`
// says no.
template <class A, class B>
class or_char_predicate {
public:
    or_char_predicate(const A& first = A(), const B& second = B()) : first_(first), second_(second) {}

    bool operator()(char c) const { return first_(c) || second_(c); }

private:
    A first_;
    B second_;
};

} // namespace pelor

#endif
