#ifndef QXQRSCRIPT_EXPR_OREXPRESSION_HPP
#define QXQRSCRIPT_EXPR_OREXPRESSION_HPP

#include "expr/BinaryExpression.hpp"

namespace QuorelScript {

// or(left,right), evaluated left to right with short-circuiting.
class OrExpression : public BinaryExpression<bool, OrExpression, bool, bool> {
public:
    OrExpression(Expression<bool>* left, Expression<bool>* right);

    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
