// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"
#include "MatchText.hpp"
#include "QuotedName.hpp"
#include "StandardOutput.hpp"

namespace qxqr {

namespace {

class TextOutput : public DependencyOutput {
public:
    explicit TextOutput(bool explain) : explain(explain) {}

    void met(const Dependency& dependency) override {
        std::string text = quotedName(dependency.visit.file) + ": " + fateName(dependency);
        if (dependency.visit.caller)
            text += " (" + std::string(relationOf(dependency.link)) + quotedName(*dependency.visit.caller) + ")";
        text += "\n";
        if (explain && dependency.visit.rule)
            text += MatchText(*dependency.visit.rule).indented("    ");
        writeStandardOutput(text);
    }

    void finish(const DependencyCounts& counts) override {
        writeStandardOutput(std::to_string(counts.of(Fate::kept)) + " kept, " +
                            std::to_string(counts.of(Fate::excluded)) + " excluded, " +
                            std::to_string(counts.of(Fate::pruned)) + " pruned, " + std::to_string(counts.notFound()) +
                            " not found\n");
    }

private:
    bool explain;
};

} // namespace

std::unique_ptr<DependencyOutput> textOutput(bool explain) {
    return std::make_unique<TextOutput>(explain);
}

} // namespace qxqr
