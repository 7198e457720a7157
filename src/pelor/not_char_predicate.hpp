// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_NOT_CHAR_PREDICATE_HPP
#define QXQRSCRIPT_PELOR_NOT_CHAR_PREDICATE_HPP

namespace pelor {

// Holds for a byte when `P` does not. It negates a predicate of bytes, not a
// parser: a char_class of it still needs a byte, and so still fails at the
// end of input.
template <class P>
class not_char_predicate {
public:
    explicit not_char_predicate(const P& predicate = P()) : predicate_(predicate) {}

    bool operator()(char c) const { return !predicate_(c); }

private:
    P predicate_;
};

} // namespace pelor

#endif
