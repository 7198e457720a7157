#include "expr/OrExpression.hpp"

#include <ostream>

namespace QuorelScript {

OrExpression::OrExpression(Expression<bool>* left, Expression<bool>* right) : BinaryExpression(left, right) {}

// The right operand is evaluated only when the left one is false.
bool OrExpression::evaluate(const Bindings& bindings) const {
    return left()->evaluate(bindings) || right()->evaluate(bindings);
}

std::ostream& OrExpression::print(std::ostream& out) const {
    return printOperands(out, "or(");
}

} // namespace QuorelScript
