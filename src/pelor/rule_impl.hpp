// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_RULE_IMPL_HPP
#define QXQRSCRIPT_PELOR_RULE_IMPL_HPP

#include "pelor/rule_impl_base.hpp"

#include <string>
#include <utility>

namespace pelor {

// The body of a grammar rule: one combinator expression, held by value, with
// each of the four entry points running that expression's own match.
//
// This is where a rule boundary costs its one virtual call, and no more: the
// call that reaches one of these overrides is virtual, but `Expression` is the
// complete static type of the body, and every match inside it (down to the
// references that lead to other rules) is a non-virtual member template
// called on a value of known type, so the compiler resolves and inlines the
// whole body. Rules whose bodies have the same shape share one instantiation.
template <class Expression>
class rule_impl final : public rule_impl_base {
public:
    explicit rule_impl(Expression expression) : expression_(std::move(expression)) {}

    bool parse(const char*& pos, const char* end) const override { return expression_.match(pos, end); }

    bool parse(char*& pos, char* end) const override { return expression_.match(pos, end); }

    bool parse(std::string::const_iterator& pos, std::string::const_iterator end) const override {
        return expression_.match(pos, end);
    }

    bool parse(std::string::iterator& pos, std::string::iterator end) const override {
        return expression_.match(pos, end);
    }

private:
    Expression expression_;
};

} // namespace pelor

#endif
