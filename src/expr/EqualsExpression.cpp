// SPDX-License-Identifier: MIT
#include "expr/EqualsExpression.hpp"

#include <ostream>

namespace QuorelScript {

EqualsExpression<Path>::EqualsExpression(Expression<Path>* left, Expression<Path>* right)
    : BinaryExpression(left, right) {}

// The right operand is evaluated before the left one. The texts are compared
// as they are: two spellings of one file are different paths.
bool EqualsExpression<Path>::evaluate(const Bindings& bindings) const {
    const Path rightValue = right()->evaluate(bindings);
    const Path leftValue = left()->evaluate(bindings);
    return leftValue.text() == rightValue.text();
}

std::ostream& EqualsExpression<Path>::print(std::ostream& out) const {
    return printOperands(out, "equals(");
}

} // namespace QuorelScript
