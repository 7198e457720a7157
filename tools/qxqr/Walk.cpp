// SPDX-License-Identifier: MIT
#include "Walk.hpp"

#include "IncludeList.hpp"
#include "OperandReader.hpp"
#include "Progress.hpp"

#include <deque>
#include <unordered_set>
#include <utility>

namespace qxqr {

const char* nameOf(Fate fate) {
    switch (fate) {
    case Fate::excluded:
        return "excluded";
    case Fate::pruned:
        return "pruned";
    case Fate::kept:
        break;
    }
    return "kept";
}

WalkStopped::WalkStopped(Limit limit, std::string file, std::optional<std::string> caller, std::size_t reached)
    : std::runtime_error("walk stopped at a limit"), limit(limit), file(std::move(file)), caller(std::move(caller)),
      reached(reached) {}

Visit visit(QuorelScript::Rules& rules, const std::string& file, const std::string* caller) {
    Visit result{file, std::nullopt, Fate::kept, std::nullopt, {}};
    if (caller)
        result.caller = *caller;
    const char* callerOrNull = caller ? caller->c_str() : nullptr;
    if (rules.isExcluded(file.c_str(), nullptr, callerOrNull))
        result.fate = Fate::excluded;
    else if (rules.isPruned(file.c_str(), nullptr, callerOrNull))
        result.fate = Fate::pruned;
    if (result.fate == Fate::kept)
        result.includes = IncludeList::of(rules, file);
    else
        result.rule = rules.getLastMatchText();
    return result;
}

namespace {

class Walker {
public:
    Walker(QuorelScript::Rules& rules, const WalkLimits& limits) : rules(rules), limits(limits) {}

    void meetStart(const std::string& file) { meet(file, nullptr, 0); }

    // Visits the first file waiting and meets its includes; false when no
    // file is waiting.
    bool visitNext(const VisitReport& report) {
        if (waiting.empty())
            return false;
        Pending next = waiting.front();
        waiting.pop_front();
        Visit done = visit(rules, *next.file, next.caller);
        report(done);
        ++visited;
        for (const std::string& included : done.includes)
            meet(included, next.file, next.depth + 1);
        return true;
    }

    std::size_t visitedCount() const { return visited; }
    std::size_t waitingCount() const { return waiting.size(); }

private:
    // A file waiting for its visit. Both names point into `met`, whose
    // elements stay where they are, so that a name is held only once.
    struct Pending {
        const std::string* file;
        const std::string* caller; // null for a start file
        std::size_t depth;
    };

    // A file met again is already visited or waiting, and at no greater
    // depth, since files are visited in the order they are met.
    void meet(const std::string& file, const std::string* caller, std::size_t depth) {
        if (met.count(file))
            return;
        if (depth > limits.maxDepth)
            throw stopped(WalkStopped::Limit::depth, file, caller, depth);
        if (met.size() >= limits.maxFiles)
            throw stopped(WalkStopped::Limit::files, file, caller, met.size() + 1);
        waiting.push_back({&*met.insert(file).first, caller, depth});
    }

    static WalkStopped stopped(WalkStopped::Limit limit, const std::string& file, const std::string* caller,
                               std::size_t reached) {
        return WalkStopped(limit, file, caller ? std::optional<std::string>(*caller) : std::nullopt, reached);
    }

    QuorelScript::Rules& rules;
    const WalkLimits& limits;
    std::unordered_set<std::string> met;
    std::deque<Pending> waiting;
    std::size_t visited = 0;
};

} // namespace

void walk(QuorelScript::Rules& rules, OperandReader& starts, const WalkLimits& limits, const VisitReport& report,
          Progress& progress) {
    Walker walker(rules, limits);
    std::string start;
    while (starts.next(start))
        walker.meetStart(start);
    while (walker.visitNext(report))
        progress.update(walker.visitedCount(), walker.waitingCount());
}

} // namespace qxqr
