// SPDX-License-Identifier: MIT
#include "expr/MultiAndExpression.hpp"

#include <ostream>

namespace QuorelScript {

// True for no operands; otherwise the first false operand ends the evaluation.
bool MultiAndExpression::evaluate(const Bindings& bindings) const {
    for (const Expression<bool>* operand : operands())
        if (!operand->evaluate(bindings))
            return false;
    return true;
}

// Deliberately the same "or(" opening as an n-ary or: the printed form of a
// rule set is fixed, and an n-ary and of A and B reads "or([A,B])" in it.
std::ostream& MultiAndExpression::print(std::ostream& out) const {
    return printOperands(out, "or(");
}

} // namespace QuorelScript
