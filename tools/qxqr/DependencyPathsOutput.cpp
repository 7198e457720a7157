// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"
#include "QuotedName.hpp"
#include "StandardOutput.hpp"

namespace qxqr {

namespace {

// For scripts: a bare path a line. A need that nothing answers has no path,
// so it is told on standard error instead, where the exit status points.
class PathsOutput : public DependencyOutput {
public:
    void met(const Dependency& dependency) override {
        if (dependency.link == Link::start || !meetings.first(dependency))
            return;
        if (dependency.found)
            writeStandardOutput(dependency.visit.file + "\n");
        else
            missing += "qxqr: " + quotedName(dependency.name) + ": not found (" + relationOf(dependency.link) +
                       quotedName(dependency.visit.caller.value_or("")) + ")\n";
    }

    void finish(const DependencyCounts&) override {}
    std::string messages() const override { return missing; }

private:
    FirstMeetings meetings;
    std::string missing;
};

} // namespace

std::unique_ptr<DependencyOutput> pathsOutput() {
    return std::make_unique<PathsOutput>();
}

} // namespace qxqr
