// SPDX-License-Identifier: MIT
#include "observe/traceCondition.hpp"

#include "expr/InExpression.hpp"
#include "expr/Path.hpp"

#include <qxqrscript/host.hpp>

#include <optional>

namespace QuorelScript {

namespace {

using Observe::Node;
using Observe::NodeKind;
using Observe::NodeValue;

// Evaluates the path node at `index` and records its text.
const std::string& tracePath(std::size_t index, const std::vector<NodeSource>& sources, const Bindings& bindings,
                             std::vector<NodeValue>& values) {
    NodeValue& value = values[index];
    value.text = sources[index].path->evaluate(bindings).text();
    value.evaluated = true;
    return value.text;
}

// A node whose operands are paths (or none): its value, recorded with
// theirs.
bool traceLeaf(const Observe::Condition& view, std::size_t index, const std::vector<NodeSource>& sources,
               const Bindings& bindings, std::vector<NodeValue>& values) {
    const Node& node = view.nodes[index];
    switch (node.kind) {
    case NodeKind::True:
        return true;
    case NodeKind::False:
        return false;
    case NodeKind::Equals: {
        const std::string& right = tracePath(node.operands[1], sources, bindings, values);
        const std::string& left = tracePath(node.operands[0], sources, bindings, values);
        return left == right;
    }
    case NodeKind::In: {
        const std::string& subject = tracePath(node.operands[0], sources, bindings, values);
        for (std::size_t i = 1; i < node.operands.size(); ++i) {
            if (hasPathPrefix(subject, tracePath(node.operands[i], sources, bindings, values))) {
                values[index].matchedElement = i;
                return true;
            }
        }
        return false;
    }
    case NodeKind::Exists:
        return kfFileOrDirExists(tracePath(node.operands[0], sources, bindings, values).c_str());
    default:
        return sources[index].condition->evaluate(bindings);
    }
}

bool isJunction(NodeKind kind) {
    return kind == NodeKind::And || kind == NodeKind::Or || kind == NodeKind::Not || kind == NodeKind::AllOf ||
           kind == NodeKind::AnyOf;
}

// The operand value that settles a junction at once: false for an and,
// true for an or. A not has none; its one operand settles it.
bool settlingValue(NodeKind kind) {
    return kind == NodeKind::Or || kind == NodeKind::AnyOf;
}

// A junction whose operands have been evaluated up to `next`: its value if
// it is settled by now.
std::optional<bool> settledJunction(const Node& node, std::size_t next, const std::vector<NodeValue>& values) {
    if (node.kind == NodeKind::Not)
        return next == 0 ? std::nullopt : std::optional<bool>(!values[node.operands[0]].value);
    const bool settling = settlingValue(node.kind);
    if (next > 0 && values[node.operands[next - 1]].value == settling)
        return settling;
    if (next == node.operands.size())
        return !settling;
    return std::nullopt;
}

} // namespace

bool traceCondition(const Observe::Condition& view, const std::vector<NodeSource>& sources, const Bindings& bindings,
                    std::vector<NodeValue>& values) {
    values.assign(view.nodes.size(), NodeValue());
    struct Frame {
        std::size_t index;
        std::size_t next; // the operand to evaluate next
    };
    std::vector<Frame> frames{{0, 0}};
    while (!frames.empty()) {
        Frame& frame = frames.back();
        const Node& node = view.nodes[frame.index];
        std::optional<bool> value;
        if (!isJunction(node.kind))
            value = traceLeaf(view, frame.index, sources, bindings, values);
        else
            value = settledJunction(node, frame.next, values);
        if (value) {
            values[frame.index].value = *value;
            values[frame.index].evaluated = true;
            frames.pop_back();
        } else {
            const std::size_t operand = node.operands[frame.next++];
            frames.push_back({operand, 0});
        }
    }
    return values[0].value;
}

} // namespace QuorelScript
