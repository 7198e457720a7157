// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_RULE_HPP
#define QXQRSCRIPT_PELOR_RULE_HPP

#include "pelor/parser.hpp"
#include "pelor/rule_impl.hpp"
#include "pelor/rule_impl_base.hpp"

#include <memory>

namespace pelor {

// A grammar's handle for one rule: the sole owner of the rule's body, and
// nothing else (no name, no flags).
//
// Other rules refer to it through ref<rule>, which keeps the rule's address
// and not its body's, so a rule may be referred to before it has a body, by
// itself, and across a redefinition. Its address must therefore stay put while
// references to it exist; it can be neither copied nor moved.
class rule {
public:
    rule() = default;
    rule(const rule&) = delete;
    rule& operator=(const rule&) = delete;

    // Gives the rule a body holding a copy of `expression`; an earlier body
    // is deleted first, so the last assignment wins. Should the allocation
    // fail, the rule is left without a body.
    template <class Expression>
    rule& operator=(const Expression& expression) {
        static_assert(is_parser<Expression>::value, "a rule body must be a parser expression");
        body_.reset();
        body_.reset(new rule_impl<Expression>(expression));
        return *this;
    }

    // The current body; null until the rule is first given one.
    const rule_impl_base* body() const { return body_.get(); }

    // Matches the rule over character pointers, with the scanning contract of
    // parser.hpp. A rule without a body fails and leaves `pos` alone.
    bool match(const char*& pos, const char* end) const { return detail::enter_body(body_.get(), pos, end); }

private:
    // The one field: deleted with the rule, through the body's virtual destructor.
    std::unique_ptr<rule_impl_base> body_;
};

} // namespace pelor

#endif
