// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_MULTIOREXPRESSION_HPP
#define QXQRSCRIPT_EXPR_MULTIOREXPRESSION_HPP

#include "expr/MultiExpression.hpp"

namespace QuorelScript {

// An n-ary or, built by the rule set and its simplifier, never by a script.
class MultiOrExpression : public MultiExpression<bool, MultiOrExpression> {
public:
    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
