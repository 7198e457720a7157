// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_CHAIN_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_CHAIN_ADAPTER_HPP

#include "pelor/parser.hpp"

#include <cstddef>

namespace pelor {

// A chain folded to the right, in a loop: matches `First`, then `Link` as
// many times as it can, exactly as first >> zero_or_more(link) does (each
// attempt at a link starts from where the last good one stopped, and the
// first failing attempt ends the chain and consumes nothing). Then, after
// the last attempt, it calls
//     fold(first, last)
// once for every link that matched, each time with the start and the end of
// the whole chain. It fails, without folding, only when `First` fails.
//
// With operands pushed on a stack by First and by the element at the end of
// every Link, folding so builds a right-leaning tree: a chain a, b, c folds b
// and c first, then a with that. Every part is tried, and every action runs,
// in the order of the right-recursive rule
//     r = First >> optional((Separator >> r)[fold])
// (Link being Separator followed by what First matches), the one difference
// being that each fold sees the whole chain's text rather than the part from
// its separator on. Unlike the rule, the chain needs no stack for its length:
// it keeps one position and a count, so a chain of any length costs the
// stack of one link.
template <class First, class Link, class Fold>
class chain_adapter : public parser<chain_adapter<First, Link, Fold>> {
public:
    chain_adapter(const First& first, const Link& link, const Fold& fold) : first_(first), link_(link), fold_(fold) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        const Iterator start = pos;
        return detail::all_or_nothing(pos, [this, start, end](Iterator& cursor) {
            if (!first_.match(cursor, end)) {
                return false;
            }
            std::size_t links = 0;
            while (link_.match(cursor, end)) {
                ++links;
            }
            const Iterator stop = cursor;
            for (; links > 0; --links) {
                fold_(start, stop);
            }
            return true;
        });
    }

private:
    First first_;
    Link link_;
    Fold fold_;
};

// `chain(first, link, fold)`: first, then link as often as it can, each
// matched link folded in from the right once the chain has ended.
template <class First, class Link, class Fold>
chain_adapter<First, Link, Fold> chain(const parser<First>& first, const parser<Link>& link, const Fold& fold) {
    return chain_adapter<First, Link, Fold>(first.derived(), link.derived(), fold);
}

} // namespace pelor

#endif
