#ifndef QXQRSCRIPT_EXPR_ANDEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_ANDEXPRESSION_HPP

#include "expr/BinaryExpression.hpp"

namespace QuorelScript {

// and(left,right), evaluated left to right with short-circuiting.
class AndExpression : public BinaryExpression<bool, AndExpression, bool, bool> {
public:
    AndExpression(Expression<bool>* left, Expression<bool>* right);

    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
