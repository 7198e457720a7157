// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_OBSERVE_TRACECONDITION_HPP
#define QXQRSCRIPT_OBSERVE_TRACECONDITION_HPP

#include "expr/Bindings.hpp"
#include "observe/ConditionView.hpp"

#include <qxqrscript/observe.hpp>

#include <vector>

namespace QuorelScript {

// Evaluates the condition that `view` shows, whose nodes' expressions are
// `sources`, against `bindings`, exactly as the condition's own evaluate
// does: operands left to right, each and and or stopping at the operand
// that decides, an equality evaluating its right path before its left one,
// an `in` its subject and then its elements up to the first that begins it,
// an `exists` asking the host about its path; a node of a kind the view does
// not know is left to its own evaluate. `values` receives one value per
// node. Uses a work list rather than recursion, as the view is built.
bool traceCondition(const Observe::Condition& view, const std::vector<NodeSource>& sources, const Bindings& bindings,
                    std::vector<Observe::NodeValue>& values);

} // namespace QuorelScript

#endif
