// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"
#include "QuotedName.hpp"
#include "StandardOutput.hpp"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace qxqr {

namespace {

// A name as a Graphviz quoted string. Graphviz reads UTF-8, and a file name
// may be any bytes: the name is shown as text output shows it (quotedName:
// valid UTF-8, no control character, one text for one name), then '"' and
// '\' are escaped.
std::string dotName(const std::string& name) {
    std::string result = "\"";
    for (char character : quotedName(name)) {
        if (character == '"' || character == '\\')
            result += '\\';
        result += character;
    }
    return result + "\"";
}

std::string baseName(const std::string& path) {
    std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos || slash + 1 == path.size() ? path : path.substr(slash + 1);
}

// None: a need that nothing answers.
const char* styleOf(std::optional<Fate> fate) {
    if (!fate)
        return "style=\"dashed,bold\", color=red, fontcolor=red";
    switch (*fate) {
    case Fate::excluded:
        return "style=dashed, color=gray50, fontcolor=gray50";
    case Fate::pruned:
        return "style=filled, fillcolor=gray90";
    case Fate::kept:
        break;
    }
    return "style=solid";
}

// Edges are written as they are met, each once: one from every file that
// needs or includes a dependency, so that a library needed by two others
// has two, and a cycle closes. A node is named by its path (or by the name
// nothing answers), the first met of a file's names (a file reached by
// several paths, or given twice under two names, is one node, and its
// edges start from that node too), and labelled by its last part, the
// whole path as its tooltip; since start files may decide on a file
// differently, the nodes are written at the end, each once, styled by the
// fate that keeps the most (keepsMore).
class DotOutput : public DependencyOutput {
public:
    DotOutput() { writeStandardOutput("digraph dependencies {\n  node [shape=box, fontname=\"sans-serif\"];\n"); }

    void met(const Dependency& dependency) override {
        const std::string node = nodeOf(dependency);
        std::string text;
        for (const Caller& caller : dependency.callers) {
            // A caller is met before what it needs, but in a cycle it may be
            // told after: its node's name is settled here then.
            const std::string& from = names.emplace(caller.identity, caller.file).first->second;
            if (edges.emplace(from, node).second)
                text += "  " + dotName(from) + " -> " + dotName(node) +
                        (caller.link == Link::included ? " [style=dotted]" : "") + ";\n";
        }
        if (!text.empty())
            writeStandardOutput(text);
    }

    void finish(const DependencyCounts&) override {
        std::string text;
        for (const std::string& node : order)
            text += "  " + dotName(node) + " [label=" + dotName(baseName(node)) + ", tooltip=" + dotName(node) + ", " +
                    styleOf(fates.at(node)) + "];\n";
        writeStandardOutput(text + "}\n");
    }

private:
    // A file reached by several paths is one node, named by the first.
    std::string nodeOf(const Dependency& dependency) {
        std::optional<Fate> fate;
        std::string node = dependency.visit.file;
        if (dependency.found) {
            fate = dependency.visit.fate;
            node = names.emplace(dependency.identity, node).first->second;
        }
        auto [place, isNew] = fates.emplace(node, fate);
        if (isNew)
            order.push_back(node);
        else if (fate && (!place->second || keepsMore(*fate, *place->second)))
            place->second = fate;
        return node;
    }

    std::map<FileIdentity, std::string> names;
    std::map<std::string, std::optional<Fate>> fates; // by node
    std::vector<std::string> order;                   // the nodes in the order first met
    std::set<std::pair<std::string, std::string>> edges;
};

} // namespace

std::unique_ptr<DependencyOutput> dotOutput() {
    return std::make_unique<DotOutput>();
}

} // namespace qxqr
