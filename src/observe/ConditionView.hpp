// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_OBSERVE_CONDITIONVIEW_HPP
#define QXQRSCRIPT_OBSERVE_CONDITIONVIEW_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"

#include <qxqrscript/observe.hpp>

#include <vector>

namespace QuorelScript {

// The expression that a node of a view shows: a condition, or a path.
struct NodeSource {
    const Expression<bool>* condition = nullptr;
    const Expression<Path>* path = nullptr;
};

// The tree of plain values that shows `condition`, node for node. Built with
// a work list rather than by recursion, so that a condition of any length
// (a chain of a million "or") costs no more stack than a short one. With
// `sources`, it receives the expression of each node, by the node's index.
Observe::Condition conditionView(const Expression<bool>& condition, std::vector<NodeSource>* sources = nullptr);

// A path expression as a Path node: its text and the variables it names;
// an expression of another class is an Other node with its printed form.
Observe::Node pathView(const Expression<Path>& path);

// The kind of node that `condition` is (Other for a class this view does not know).
Observe::NodeKind nodeKindOf(const Expression<bool>& condition);

} // namespace QuorelScript

#endif
