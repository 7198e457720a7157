#ifndef QXQRSCRIPT_INSPECT_CONDITIONVIEW_HPP
#define QXQRSCRIPT_INSPECT_CONDITIONVIEW_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"

#include <qxqrscript/inspect.hpp>

namespace QuorelScript {

// The tree of plain values that shows `condition`, node for node. Built with
// a work list rather than by recursion, so that a condition of any length
// (a chain of a million "or") costs no more stack than a short one.
Inspect::Condition conditionView(const Expression<bool>& condition);

// A path expression as a Path node: its text and the variables it names;
// an expression of another class is an Other node with its printed form.
Inspect::Node pathView(const Expression<Path>& path);

// The kind of node that `condition` is (Other for a class this view does not know).
Inspect::NodeKind nodeKindOf(const Expression<bool>& condition);

} // namespace QuorelScript

#endif
