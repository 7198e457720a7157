// SPDX-License-Identifier: MIT
#ifndef QXQR_WALK_HPP
#define QXQR_WALK_HPP

#include <qxqrscript/Rules.hpp>

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace qxqr {

class OperandReader;
class Progress;

enum class Fate { kept, excluded, pruned };

const char* nameOf(Fate fate);

// One file met by a walk and what the rules made of it.
struct Visit {
    std::string file;
    std::optional<std::string> caller; // the file whose include rules added it; none for a start file
    Fate fate = Fate::kept;
    std::optional<std::string> rule;   // the deciding rule's text, for an excluded or pruned file
    std::vector<std::string> includes; // what its include rules added (kept files only)
};

// Decides one file's fate, `caller` (null for a start file) being the file
// that led to it; for a kept file also asks what it includes.
Visit visit(QuorelScript::Rules& rules, const std::string& file, const std::string* caller);

using VisitReport = std::function<void(const Visit&)>;

// How far a walk may go. A rule can add a new file at every step for ever
// (a path that grows by a directory each time, a symbolic link back to its
// own directory), so without limits such a walk would never end.
struct WalkLimits {
    std::size_t maxFiles = 1000000; // files met, start files included
    std::size_t maxDepth = 1000;    // include steps from a start file
};

// Thrown when the walk meets a file beyond one of its limits.
class WalkStopped : public std::runtime_error {
public:
    enum class Limit { files, depth };

    WalkStopped(Limit limit, std::string file, std::optional<std::string> caller, std::size_t reached);

    Limit limit;
    std::string file;                  // the file met beyond the limit
    std::optional<std::string> caller; // what included it; none for a start file
    std::size_t reached;               // its number among the files met, or its depth
};

// What a dependency-analysis host does with a rule set, on any tree: from
// the start files, every file met is tested with isExcluded (and skipped if
// excluded), then isPruned (its includes are not followed if pruned), and
// otherwise its includes are queued, with the file as their caller. Each
// file is visited once, in the order it is first met, and reported as soon
// as it is visited, before its includes are met. A visit is forgotten once
// reported: the walk holds only the set of files met and the queue of
// those waiting, never the answer. Meeting a file beyond `limits` throws
// WalkStopped; everything visited before it has been reported.
void walk(QuorelScript::Rules& rules, OperandReader& starts, const WalkLimits& limits, const VisitReport& report,
          Progress& progress);

} // namespace qxqr

#endif
