// SPDX-License-Identifier: MIT
#ifndef QXQR_DEPENDENCYOUTPUT_HPP
#define QXQR_DEPENDENCYOUTPUT_HPP

#include "DependencyWalk.hpp"

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace qxqr {

const char* nameOf(Link link);

// What a dependency is to its caller, as the outputs say it before the
// caller's name: "needed by ", "interpreter of ", "included by ".
const char* relationOf(Link link);

// A dependency's fate as the output names it: "kept", "excluded",
// "pruned", or "not found".
const char* fateName(const Dependency& dependency);

// Tells whether a dependency is met for the first time in a run: a found
// file by its identity (whatever its path or start file), a need nothing
// answers by its name and the file that needs it.
class FirstMeetings {
public:
    bool first(const Dependency& dependency);

private:
    std::set<FileIdentity> files;
    std::set<std::pair<std::string, std::string>> missing;
};

// The distinct files of a run by fate, and the distinct needs nothing
// answers. A file that start files decide on differently counts once,
// under the fate that keeps the most (keepsMore): it is shipped when any
// start file keeps it.
class DependencyCounts {
public:
    void count(const Dependency& dependency);

    std::size_t of(Fate fate) const;
    std::size_t notFound() const { return notFoundCount; }

private:
    std::map<FileIdentity, Fate> fates;
    FirstMeetings needs;
    std::size_t notFoundCount = 0;
};

// One form of the `deps` answer, written to standard output as the walk
// goes (an answer grows with the files met, without bound).
class DependencyOutput {
public:
    virtual ~DependencyOutput() = default;
    virtual void met(const Dependency& dependency) = 0;
    virtual void finish(const DependencyCounts& counts) = 0;
    // What comes after the answer on standard error (the needs nothing
    // answers, for a form that has no place for them).
    virtual std::string messages() const { return std::string(); }
};

// Each start file's closure in turn, as if it were walked alone: each file
// once, with its fate and what led to it; --explain adds the deciding
// rule; a line of counts ends it.
std::unique_ptr<DependencyOutput> textOutput(bool explain);
// One JSON document: every dependency of every start file, then the counts.
std::unique_ptr<DependencyOutput> jsonOutput();
// The path of each file found once, start files left out.
std::unique_ptr<DependencyOutput> pathsOutput();
// A Graphviz graph of who needs or includes whom, each file one node
// styled by its fate over the run.
std::unique_ptr<DependencyOutput> dotOutput();

} // namespace qxqr

#endif
