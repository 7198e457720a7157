// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_ANDEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_ANDEXPRESSION_HPP

#include "expr/JunctionExpression.hpp"

namespace QuorelScript {

// and(left,right), evaluated left to right with short-circuiting: the right
// operand is evaluated only when the left one is true. Operands may query
// the file system, so how often they run is part of the behaviour.
class AndExpression final : public JunctionExpression<AndExpression> {
public:
    AndExpression(Expression<bool>* left, Expression<bool>* right);

    // The left operand's value that decides the whole without the right one.
    static constexpr bool decisive = false;
    static constexpr char opening[] = "and(";
};

} // namespace QuorelScript

#endif
