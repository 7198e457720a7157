// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_MULTIANDEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_MULTIANDEXPRESSION_HPP

#include "expr/MultiExpression.hpp"

namespace QuorelScript {

// An n-ary and, built by the rule set and its simplifier, never by a script.
class MultiAndExpression : public MultiExpression<bool, MultiAndExpression> {
public:
    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
