// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_PREFIXTEXTINDEX_HPP
#define QXQRSCRIPT_RULES_PREFIXTEXTINDEX_HPP

#include "rules/PositionRun.hpp"

#include <cstdint>
#include <string_view>
#include <vector>

namespace QuorelScript {

// Texts, each with a position, arranged as a tree of their bytes, so that
// the texts that are prefixes of a given one are found in one walk over it,
// however many texts there are.
class PrefixTextIndex {
public:
    void add(std::string_view text, std::uint32_t position);
    // Packs the tree for lookups; nothing may be added afterwards.
    void finish();
    bool empty() const { return empty_; }

    // Appends to `runs` the positions of every text that is a prefix of
    // `subject` (the empty text included): one ascending run per length.
    void collectPrefixesOf(std::string_view subject, PositionRuns& runs) const;
    // The most runs that one call of collectPrefixesOf appends.
    std::size_t mostRunsPerLookup() const { return mostRuns_; }

private:
    struct Node {
        // Its children, as a range of `edges_` sorted by byte, and the
        // positions of the texts that end here, as a range of `positions_`.
        std::uint32_t edgesBegin, edgesEnd;
        std::uint32_t positionsBegin, positionsEnd;
    };
    struct Edge {
        unsigned char byte;
        std::uint32_t child;
    };
    struct Entry {
        std::string_view text;
        std::uint32_t position;
    };

    // Builds the tree from the entries, sorted by text.
    void build();
    const Node* child(const Node& node, unsigned char byte) const;

    std::vector<Entry> entries_;
    std::vector<Node> nodes_;
    std::vector<Edge> edges_;
    std::vector<std::uint32_t> positions_;
    std::size_t mostRuns_{0};
    bool empty_{true};
};

} // namespace QuorelScript

#endif
