// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_ACTION_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_ACTION_ADAPTER_HPP

#include "pelor/parser.hpp"

#include <utility>

namespace pelor {

// Semantic action: matches `Subject`, then at once calls
//     action(first, last)
// with the start and the end of the text the subject matched, before anything
// after it is tried. `Action` is any copyable type callable that way through a
// const object; it returns nothing and cannot refuse a match. It is handed
// read-only copies of the two positions, so it cannot move the parser either.
//
// The action runs exactly once per successful match of its subject and not
// at all when the subject fails. Nested actions run innermost first, since
// the inner subject finishes first. Nothing an action did is undone when an
// enclosing expression fails and the parser backtracks; if the text is then
// matched again, the action runs again. Exceptions from the action pass
// through untouched.
template <class Subject, class Action>
class action_adapter : public parser<action_adapter<Subject, Action>> {
public:
    action_adapter(Subject subject, Action action) : subject_(std::move(subject)), action_(std::move(action)) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        const Iterator start = pos;
        return detail::all_or_nothing(pos, [this, start, end](Iterator& cursor) {
            if (!subject_.match(cursor, end)) {
                return false;
            }
            const Iterator stop = cursor;
            action_(start, stop);
            return true;
        });
    }

private:
    Subject subject_;
    Action action_;
};

template <class P>
template <class Action>
action_adapter<P, Action> parser<P>::operator[](const Action& action) const {
    return action_adapter<P, Action>(derived(), action);
}

} // namespace pelor

#endif
