// SPDX-License-Identifier: MIT
#include "expr/MultiOrExpression.hpp"

#include <ostream>

namespace QuorelScript {

// False for no operands; otherwise the first true operand ends the evaluation.
bool MultiOrExpression::evaluate(const Bindings& bindings) const {
    for (const Expression<bool>* operand : operands())
        if (operand->evaluate(bindings))
            return true;
    return false;
}

std::ostream& MultiOrExpression::print(std::ostream& out) const {
    return printOperands(out, "or(");
}

} // namespace QuorelScript
