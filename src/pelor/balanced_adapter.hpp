// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_BALANCED_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_BALANCED_ADAPTER_HPP

#include "pelor/parser.hpp"

#include <cstddef>
#include <utility>

namespace pelor {

// Nesting that is counted rather than recursed into: matches what the rule
//     n = zero_or_more((Open >> n) | Item) >> Close
// matches, trying the same parts in the same order, in a loop. Each `Open`
// that matches owes one more `Close`; where neither `Open` nor `Item`
// matches, a `Close` must, and pays one off; the match ends when all are
// paid. The stack it takes does not grow with the nesting: it keeps one
// position and a count.
//
// The loop cannot go back into a level it has closed, so it is the rule's
// exact equivalent only where `Close` matches wherever `Open` and `Item`
// both fail, as a line end does where a comment's text stops. Where `Close`
// fails inside a nested level, the rule would fail that level and try `Item`
// in place of its `Open`; this adapter fails as a whole instead, and leaves
// the position where it was.
//
// `Open` and `Item` must consume input whenever they match, or the loop
// never ends. `Close` may match empty text (the end of input), and is then
// tried again for each level still open.
template <class Open, class Item, class Close>
class balanced_adapter : public parser<balanced_adapter<Open, Item, Close>> {
public:
    balanced_adapter(Open open, Item item, Close close)
        : open_(std::move(open)), item_(std::move(item)), close_(std::move(close)) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return detail::all_or_nothing(pos, [this, end](Iterator& cursor) { return close_levels(cursor, end); });
    }

private:
    // Moves `cursor` over items and nested levels up to the close of the
    // level it starts in; false where a close is due and does not match.
    template <class Iterator>
    bool close_levels(Iterator& cursor, Iterator end) const {
        std::size_t open = 1;
        while (open > 0) {
            if (open_.match(cursor, end)) {
                ++open;
                continue;
            }
            if (item_.match(cursor, end)) {
                continue;
            }
            if (!close_.match(cursor, end)) {
                return false;
            }
            --open;
        }
        return true;
    }

    Open open_;
    Item item_;
    Close close_;
};

// `balanced(open, item, close)`: items and nested open ... close pairs, up
// to the close that ends the outermost level.
template <class Open, class Item, class Close>
balanced_adapter<Open, Item, Close> balanced(const parser<Open>& open, const parser<Item>& item,
                                             const parser<Close>& close) {
    return balanced_adapter<Open, Item, Close>(open.derived(), item.derived(), close.derived());
}

} // namespace pelor

#endif
