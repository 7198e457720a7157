// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_OREXPRESSION_HPP
#define QXQRSCRIPT_EXPR_OREXPRESSION_HPP

#include "expr/JunctionExpression.hpp"

namespace QuorelScript {

// or(left,right), evaluated left to right with short-circuiting: the right
// operand is evaluated only when the left one is false.
class OrExpression final : public JunctionExpression<OrExpression> {
public:
    OrExpression(Expression<bool>* left, Expression<bool>* right);

    // The left operand's value that decides the whole without the right one.
    static constexpr bool decisive = true;
    static constexpr char opening[] = "or(";
};

} // namespace QuorelScript

#endif
