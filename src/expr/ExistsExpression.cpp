// SPDX-License-Identifier: MIT
#include "expr/ExistsExpression.hpp"

#include <qxqrscript/host.hpp>

#include <ostream>

namespace QuorelScript {

ExistsExpression::ExistsExpression(Expression<Path>* operand) : UnaryExpression(operand) {}

// Asked anew every time: the file system may have changed in between.
bool ExistsExpression::evaluate(const Bindings& bindings) const {
    return kfFileOrDirExists(operand()->evaluate(bindings).c_str());
}

std::ostream& ExistsExpression::print(std::ostream& out) const {
    return printOperands(out, "exists(");
}

} // namespace QuorelScript
