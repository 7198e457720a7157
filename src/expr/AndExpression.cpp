#include "expr/AndExpression.hpp"

#include <ostream>

namespace QuorelScript {

AndExpression::AndExpression(Expression<bool>* left, Expression<bool>* right) : BinaryExpression(left, right) {}

// The right operand is evaluated only when the left one is true: operands may
// query the file system, so how often they run is part of the behaviour.
bool AndExpression::evaluate(const Bindings& bindings) const {
    return left()->evaluate(bindings) && right()->evaluate(bindings);
}

std::ostream& AndExpression::print(std::ostream& out) const {
    return printOperands(out, "and(");
}

} // namespace QuorelScript
