// SPDX-License-Identifier: MIT
#include "rules/PrefixTextIndex.hpp"

#include <algorithm>

namespace QuorelScript {

void PrefixTextIndex::add(std::string_view text, std::uint32_t position) {
    entries_.push_back({text, position});
    empty_ = false;
}

void PrefixTextIndex::finish() {
    // By text, and the positions of one text ascending, so that the
    // positions of each node form an ascending run.
    std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
        return a.text < b.text || (a.text == b.text && a.position < b.position);
    });
    if (!entries_.empty())
        build();
    entries_.clear();
    entries_.shrink_to_fit();
}

// The entries of one node are contiguous once sorted: those that end here
// come first, then one run per next byte. The tree is built by an explicit
// walk over those runs, a level at a time, so a long text costs no deep
// recursion.
void PrefixTextIndex::build() {
    struct Pending {
        std::vector<Entry>::const_iterator begin, end;
        std::size_t depth;
        std::uint32_t node;
        // The nodes with positions on the way here, this one left out: a
        // lookup that reaches this node has found a run at each of them.
        std::size_t runsAbove;
    };
    nodes_.push_back({});
    std::vector<Pending> pending{{entries_.cbegin(), entries_.cend(), 0, 0, 0}};
    while (!pending.empty()) {
        const Pending current = pending.back();
        pending.pop_back();
        auto next = current.begin;
        const std::uint32_t positionsBegin = static_cast<std::uint32_t>(positions_.size());
        for (; next != current.end && next->text.size() == current.depth; ++next)
            positions_.push_back(next->position);
        const std::size_t runsHere = current.runsAbove + (positions_.size() > positionsBegin ? 1 : 0);
        mostRuns_ = std::max(mostRuns_, runsHere);
        const std::uint32_t edgesBegin = static_cast<std::uint32_t>(edges_.size());
        while (next != current.end) {
            const unsigned char byte = static_cast<unsigned char>(next->text[current.depth]);
            auto runEnd = next;
            while (runEnd != current.end && static_cast<unsigned char>(runEnd->text[current.depth]) == byte)
                ++runEnd;
            const std::uint32_t child = static_cast<std::uint32_t>(nodes_.size());
            nodes_.push_back({});
            edges_.push_back({byte, child});
            pending.push_back({next, runEnd, current.depth + 1, child, runsHere});
            next = runEnd;
        }
        nodes_[current.node] = {edgesBegin, static_cast<std::uint32_t>(edges_.size()), positionsBegin,
                                static_cast<std::uint32_t>(positions_.size())};
    }
}

const PrefixTextIndex::Node* PrefixTextIndex::child(const Node& node, unsigned char byte) const {
    const auto first = edges_.begin() + node.edgesBegin;
    const auto last = edges_.begin() + node.edgesEnd;
    const auto edge = std::lower_bound(first, last, byte, [](const Edge& e, unsigned char b) { return e.byte < b; });
    if (edge == last || edge->byte != byte)
        return nullptr;
    return &nodes_[edge->child];
}

void PrefixTextIndex::collectPrefixesOf(std::string_view subject, PositionRuns& runs) const {
    if (nodes_.empty())
        return;
    const Node* node = &nodes_.front();
    for (std::size_t depth = 0;; ++depth) {
        if (node->positionsBegin != node->positionsEnd)
            runs.push_back({positions_.data() + node->positionsBegin, positions_.data() + node->positionsEnd});
        if (depth == subject.size())
            return;
        node = child(*node, static_cast<unsigned char>(subject[depth]));
        if (node == nullptr)
            return;
    }
}

} // namespace QuorelScript
