// SPDX-License-Identifier: MIT
#include "expr/NotExpression.hpp"

#include <ostream>

namespace QuorelScript {

NotExpression<bool>::NotExpression(Expression<bool>* operand) : UnaryExpression(operand) {}

bool NotExpression<bool>::evaluate(const Bindings& bindings) const {
    return !operand()->evaluate(bindings);
}

std::ostream& NotExpression<bool>::print(std::ostream& out) const {
    return printOperands(out, "not(");
}

} // namespace QuorelScript
