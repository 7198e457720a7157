// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_NOTEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_NOTEXPRESSION_HPP

#include "expr/UnaryExpression.hpp"

namespace QuorelScript {

template <class T>
class NotExpression;

// not(operand)
template <>
class NotExpression<bool> : public UnaryExpression<bool, NotExpression<bool>, bool> {
public:
    explicit NotExpression(Expression<bool>* operand);

    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
