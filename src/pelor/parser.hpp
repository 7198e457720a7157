// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_PARSER_HPP
#define QXQRSCRIPT_PELOR_PARSER_HPP

#include <type_traits>

namespace pelor {

template <class Subject, class Action>
class action_adapter;

// The common base of every parser type P, in the curiously recurring style.
//
// Every parser offers
//     template <class Iterator> bool match(Iterator& pos, Iterator end) const;
// and keeps the scanning contract: `pos` is the caller's current position, in
// and out; `end` is one past the last byte and is never read; the result says
// whether the parser matched. On success `pos` has moved past the matched
// text (perhaps not at all); on failure it is exactly as it was on entry.
//
// The base carries no data and no virtual functions: it only marks a type as
// a parser, so that the combining operators accept parsers and nothing else,
// and it lets any parser take an action with `parser[action]`.
template <class P>
class parser {
public:
    const P& derived() const { return static_cast<const P&>(*this); }

    // The parser that matches what this one matches and then calls `action`
    // on the matched text (see action_adapter.hpp, which defines it).
    template <class Action>
    action_adapter<P, Action> operator[](const Action& action) const;

protected:
    parser() = default;
};

// True for the types that derive from parser<T>, i.e. for parser types.
template <class T>
struct is_parser : std::is_base_of<parser<T>, T> {};

namespace detail {

// The all-or-nothing half of the scanning contract, for a parser that takes
// several steps: calls `steps(cursor)` on a copy of `pos`, and moves `pos` to
// where the copy stopped only when the steps succeed. Whatever the steps
// consumed before they failed is so given back, however far they went.
template <class Iterator, class Steps>
bool all_or_nothing(Iterator& pos, const Steps& steps) {
    Iterator cursor = pos;
    if (!steps(cursor)) {
        return false;
    }
    pos = cursor;
    return true;
}

} // namespace detail

} // namespace pelor

#endif
