// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_EQUALSEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_EQUALSEXPRESSION_HPP

#include "expr/BinaryExpression.hpp"
#include "expr/Path.hpp"

namespace QuorelScript {

template <class T>
class EqualsExpression;

// equals(left,right): the two evaluated texts are identical, byte for byte.
template <>
class EqualsExpression<Path> : public BinaryExpression<bool, EqualsExpression<Path>, Path, Path> {
public:
    EqualsExpression(Expression<Path>* left, Expression<Path>* right);

    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
