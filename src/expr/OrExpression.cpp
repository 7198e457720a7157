// SPDX-License-Identifier: MIT
#include "expr/OrExpression.hpp"

namespace QuorelScript {

OrExpression::OrExpression(Expression<bool>* left, Expression<bool>* right) : JunctionExpression(left, right) {}

} // namespace QuorelScript
