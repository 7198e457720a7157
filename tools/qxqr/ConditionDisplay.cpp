// SPDX-License-Identifier: MIT
#include "ConditionDisplay.hpp"

namespace qxqr {

namespace {

using QuorelScript::Observe::NodeKind;

bool isConjunction(NodeKind kind) {
    return kind == NodeKind::And || kind == NodeKind::AllOf;
}

bool isDisjunction(NodeKind kind) {
    return kind == NodeKind::Or || kind == NodeKind::AnyOf;
}

bool sameJunction(NodeKind a, NodeKind b) {
    return (isConjunction(a) && isConjunction(b)) || (isDisjunction(a) && isDisjunction(b));
}

} // namespace

std::vector<std::size_t> shownOperands(const QuorelScript::Observe::Condition& condition, std::size_t index) {
    const std::vector<QuorelScript::Observe::Node>& nodes = condition.nodes;
    const NodeKind kind = nodes[index].kind;
    std::vector<std::size_t> shown;
    // A work list in reverse, so that the operands come out in order.
    std::vector<std::size_t> pending(nodes[index].operands.rbegin(), nodes[index].operands.rend());
    while (!pending.empty()) {
        const std::size_t operand = pending.back();
        pending.pop_back();
        if (sameJunction(kind, nodes[operand].kind))
            pending.insert(pending.end(), nodes[operand].operands.rbegin(), nodes[operand].operands.rend());
        else
            shown.push_back(operand);
    }
    return shown;
}

std::string nodeName(const QuorelScript::Observe::Node& node) {
    switch (node.kind) {
    case NodeKind::And:
    case NodeKind::AllOf:
        return "and";
    case NodeKind::Or:
    case NodeKind::AnyOf:
        return "or";
    case NodeKind::Not:
        return "not";
    case NodeKind::Equals:
        return "equals";
    case NodeKind::In:
        return "in";
    case NodeKind::Exists:
        return "exists";
    case NodeKind::True:
        return "true";
    case NodeKind::False:
        return "false";
    case NodeKind::Path:
        return "path";
    case NodeKind::Other:
        break;
    }
    return node.text;
}

std::string expansionName(QuorelScript::Observe::Expansion expansion) {
    using QuorelScript::Observe::Expansion;
    switch (expansion) {
    case Expansion::Directory:
        return "directory";
    case Expansion::Pattern:
        return "pattern";
    default:
        return "plain";
    }
}

} // namespace qxqr
