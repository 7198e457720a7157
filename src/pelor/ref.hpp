// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_REF_HPP
#define QXQRSCRIPT_PELOR_REF_HPP

#include "pelor/parser.hpp"
#include "pelor/rule_impl_base.hpp"

namespace pelor {

// A parser that matches whatever the rule it names matches; ref<rule> is how
// rules name each other.
//
// It keeps a pointer to the rule, never to the rule's body, and asks the rule
// for its body at every match: a rule may thus be named before it is defined
// or while it is being defined (recursion), and a redefinition is seen by
// every existing reference. A rule without a body fails without consuming
// anything; inside a repetition that ends the loop.
//
// Crossing a reference costs exactly one virtual call, the body's `parse` for
// the position kind at hand; that call is the only indirect one in matching,
// since everything else is a non-virtual member template (see rule_impl.hpp).
template <class Rule>
class ref : public parser<ref<Rule>> {
public:
    explicit ref(const Rule& target) : rule_(&target) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return detail::enter_body(rule_->body(), pos, end);
    }

private:
    const Rule* rule_;
};

} // namespace pelor

#endif
