// SPDX-License-Identifier: MIT
#include "observe/ConditionView.hpp"

#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/PathLiteral.hpp"
#include "expr/exactType.hpp"
#include "expr/variableSubstitution.hpp"

#include <optional>
#include <sstream>
#include <utility>

namespace QuorelScript {

namespace {

using Observe::Node;
using Observe::NodeKind;

std::string printed(const Expression<bool>& condition) {
    std::ostringstream out;
    condition.print(out);
    return out.str();
}

// The names of the references in `text`, in order, found as substitution
// finds them.
std::vector<std::string> variableNames(const std::string& text) {
    std::vector<std::string> names;
    std::string::size_type dollar = text.find('$');
    while (dollar != std::string::npos) {
        const std::optional<VariableReference> reference = variableReferenceAt(text, dollar);
        if (reference)
            names.emplace_back(reference->name);
        dollar = text.find('$', dollar + 1);
    }
    return names;
}

// A node's operands that are conditions, in evaluation order.
std::vector<const Expression<bool>*> conditionOperands(const Expression<bool>& condition, NodeKind kind) {
    switch (kind) {
    case NodeKind::And:
        return {static_cast<const AndExpression&>(condition).left(),
                static_cast<const AndExpression&>(condition).right()};
    case NodeKind::Or:
        return {static_cast<const OrExpression&>(condition).left(),
                static_cast<const OrExpression&>(condition).right()};
    case NodeKind::Not:
        return {static_cast<const NotExpression<bool>&>(condition).operand()};
    case NodeKind::AllOf: {
        const auto& operands = static_cast<const MultiAndExpression&>(condition).operands();
        return {operands.begin(), operands.end()};
    }
    case NodeKind::AnyOf: {
        const auto& operands = static_cast<const MultiOrExpression&>(condition).operands();
        return {operands.begin(), operands.end()};
    }
    default:
        return {};
    }
}

// A node's operands that are paths, in the order Node documents.
std::vector<const Expression<Path>*> pathOperands(const Expression<bool>& condition, NodeKind kind) {
    switch (kind) {
    case NodeKind::Equals:
        return {static_cast<const EqualsExpression<Path>&>(condition).left(),
                static_cast<const EqualsExpression<Path>&>(condition).right()};
    case NodeKind::Exists:
        return {static_cast<const ExistsExpression&>(condition).operand()};
    case NodeKind::In: {
        const InExpression& in = static_cast<const InExpression&>(condition);
        std::vector<const Expression<Path>*> operands{in.subject()};
        operands.insert(operands.end(), in.list().begin(), in.list().end());
        return operands;
    }
    default:
        return {};
    }
}

void appendOperand(Observe::Condition& view, std::size_t parent, Node node) {
    view.nodes[parent].operands.push_back(view.nodes.size());
    view.nodes.push_back(std::move(node));
}

} // namespace

NodeKind nodeKindOf(const Expression<bool>& condition) {
    if (isExactly<BooleanLiteral>(condition))
        return static_cast<const BooleanLiteral&>(condition).value() ? NodeKind::True : NodeKind::False;
    if (isExactly<AndExpression>(condition))
        return NodeKind::And;
    if (isExactly<OrExpression>(condition))
        return NodeKind::Or;
    if (isExactly<NotExpression<bool>>(condition))
        return NodeKind::Not;
    if (isExactly<MultiAndExpression>(condition))
        return NodeKind::AllOf;
    if (isExactly<MultiOrExpression>(condition))
        return NodeKind::AnyOf;
    if (isExactly<EqualsExpression<Path>>(condition))
        return NodeKind::Equals;
    if (isExactly<InExpression>(condition))
        return NodeKind::In;
    if (isExactly<ExistsExpression>(condition))
        return NodeKind::Exists;
    return NodeKind::Other;
}

Node pathView(const Expression<Path>& path) {
    Node node;
    if (const PathLiteral* literal = asExactly<const PathLiteral>(&path)) {
        node.kind = NodeKind::Path;
        node.text = literal->path().text();
        node.variables = variableNames(node.text);
    } else {
        std::ostringstream out;
        path.print(out);
        node.text = out.str();
    }
    return node;
}

// Each condition node is made when it is taken from the work list, and
// becomes the next operand of the node that put it there; the work list is
// a stack that holds the operands in reverse, so that every subtree is
// complete before its next sibling begins, and the nodes come in preorder.
Observe::Condition conditionView(const Expression<bool>& condition, std::vector<NodeSource>* sources) {
    static const std::size_t noParent = static_cast<std::size_t>(-1);
    Observe::Condition view;
    std::vector<NodeSource> unused;
    std::vector<NodeSource>& sourceOf = sources ? *sources : unused;
    sourceOf.clear();
    std::vector<std::pair<const Expression<bool>*, std::size_t>> pending{{&condition, noParent}};
    while (!pending.empty()) {
        const auto [expression, parent] = pending.back();
        pending.pop_back();
        Node node;
        node.kind = nodeKindOf(*expression);
        if (node.kind == NodeKind::Other)
            node.text = printed(*expression);
        const std::size_t index = view.nodes.size();
        if (parent == noParent)
            view.nodes.push_back(std::move(node));
        else
            appendOperand(view, parent, std::move(node));
        if (sources)
            sourceOf.push_back({expression, nullptr});
        for (const Expression<Path>* path : pathOperands(*expression, view.nodes[index].kind)) {
            appendOperand(view, index, pathView(*path));
            if (sources)
                sourceOf.push_back({nullptr, path});
        }
        const std::vector<const Expression<bool>*> operands = conditionOperands(*expression, view.nodes[index].kind);
        for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand)
            pending.emplace_back(*operand, index);
    }
    return view;
}

} // namespace QuorelScript
