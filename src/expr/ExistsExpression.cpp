// SPDX-License-Identifier: MIT
#include "expr/ExistsExpression.hpp"

#include <qxqrscript/host.hpp>

#include <ostream>

namespace QuorelScript {

ExistsExpression::ExistsExpression(Expression<Path>* operand) : UnaryExpression(operand) {}

// Asked anew at every evaluation: the file system may have changed in
// between. A test whose path names no variable is the exception, by intent:
// in an exclude or prune rule, precompute evaluates it once and puts the
// answer in its place, since the file it names is the same for every query;
// the file system is then not asked again.
bool ExistsExpression::evaluate(const Bindings& bindings) const {
    return kfFileOrDirExists(operand()->evaluate(bindings).c_str());
}

std::ostream& ExistsExpression::print(std::ostream& out) const {
    return printOperands(out, "exists(");
}

} // namespace QuorelScript
