// SPDX-License-Identifier: MIT
#include "expr/AndExpression.hpp"

namespace QuorelScript {

AndExpression::AndExpression(Expression<bool>* left, Expression<bool>* right) : JunctionExpression(left, right) {}

} // namespace QuorelScript
