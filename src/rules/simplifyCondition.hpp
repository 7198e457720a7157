// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_SIMPLIFYCONDITION_HPP
#define QXQRSCRIPT_RULES_SIMPLIFYCONDITION_HPP

#include "expr/Expression.hpp"

namespace QuorelScript {

// Rewrites a condition into a smaller equivalent one: variable-free parts
// folded into literals, two-operand and/or turned into n-ary nodes with
// nested ones of the same kind spliced in, double negations removed, a
// negated or inside an and (and the mirror image) distributed, decided
// operands dropped. Takes ownership of `condition`, which must not be null
// (std::bad_typeid), and returns the node that replaces it; that may be
// `condition` itself, and everything of it not reused has been freed.
Expression<bool>* simplifyCondition(Expression<bool>* condition);

} // namespace QuorelScript

#endif
