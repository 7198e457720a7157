// SPDX-License-Identifier: MIT
#ifndef QXQR_CONDITIONDISPLAY_HPP
#define QXQR_CONDITIONDISPLAY_HPP

#include <qxqrscript/observe.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace qxqr {

// How `why` shows a condition and an include path, in text and in JSON alike.

// The operands of node `index` as shown: an and (or) among the operands of
// an and (or) gives its own operands in its place, so that a script's
// "a or b or c", which the library holds as or(a, or(b, c)), shows as one
// or over a, b and c, however long the chain; its value is the same. A
// node of another kind shows its operands as they are.
std::vector<std::size_t> shownOperands(const QuorelScript::Observe::Condition& condition, std::size_t index);

// "and", "or", "not", "equals", "in", "exists", "true", "false", "path", or
// the printed form of a node of a kind the library did not name. The n-ary
// and and or that precompute makes are "and" and "or".
std::string nodeName(const QuorelScript::Observe::Node& node);

// "plain", "directory" or "pattern": what an include path was taken for.
std::string expansionName(QuorelScript::Observe::Expansion expansion);

} // namespace qxqr

#endif
