// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"
#include "StandardOutput.hpp"

#include <map>
#include <set>

namespace qxqr {

namespace {

// A Graphviz quoted string: '"' and '\' escaped, a line end as \n.
std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (char character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        if (character == '\n')
            result += "\\n";
        else
            result += character;
    }
    return result + "\"";
}

std::string baseName(const std::string& path)
{
    std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos || slash + 1 == path.size() ? path : path.substr(slash + 1);
}

const char* styleOf(const Dependency& dependency)
{
    if (!dependency.found)
        return "style=\"dashed,bold\", color=red, fontcolor=red";
    switch (dependency.visit.fate) {
    case Fate::excluded:
        return "style=dashed, color=gray50, fontcolor=gray50";
    case Fate::pruned:
        return "style=filled, fillcolor=gray90";
    case Fate::kept:
        break;
    }
    return "style=solid";
}

// Nodes and edges are written as they are met, each once; a node is named
// by its path (or by the name nothing answers) and labelled by its last
// part, the whole path as its tooltip.
class DotOutput : public DependencyOutput {
public:
    DotOutput() { writeStandardOutput("digraph dependencies {\n  node [shape=box, fontname=\"sans-serif\"];\n"); }

    void met(const Dependency& dependency) override
    {
        const std::string node = nodeOf(dependency);
        std::string text;
        if (meetings.first(dependency))
            text += "  " + quoted(node) + " [label=" + quoted(baseName(node)) + ", tooltip=" + quoted(node) + ", " +
                    styleOf(dependency) + "];\n";
        if (dependency.visit.caller && edges.emplace(*dependency.visit.caller, node).second)
            text += "  " + quoted(*dependency.visit.caller) + " -> " + quoted(node) +
                    (dependency.link == Link::included ? " [style=dotted]" : "") + ";\n";
        if (!text.empty())
            writeStandardOutput(text);
    }

    void finish(const DependencyCounts&) override { writeStandardOutput("}\n"); }

private:
    // A file reached by several paths is one node, named by the first.
    std::string nodeOf(const Dependency& dependency)
    {
        if (!dependency.found)
            return dependency.visit.file;
        return nodes.emplace(dependency.identity, dependency.visit.file).first->second;
    }

    FirstMeetings meetings;
    std::map<FileIdentity, std::string> nodes;
    std::set<std::pair<std::string, std::string>> edges;
};

} // namespace

std::unique_ptr<DependencyOutput> dotOutput()
{
    return std::make_unique<DotOutput>();
}

} // namespace qxqr
