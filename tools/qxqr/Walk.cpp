#include "Walk.hpp"

#include "IncludeList.hpp"
#include "OperandReader.hpp"
#include "Progress.hpp"

#include <deque>
#include <unordered_set>

namespace qxqr {

const char* nameOf(Fate fate)
{
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

namespace {

// Decides one file's fate; for a kept file also asks what it includes.
Visit visit(QuorelScript::Rules& rules, const std::string& file, const std::string* caller)
{
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

class Walker {
public:
    explicit Walker(QuorelScript::Rules& rules) : rules(rules) {}

    void meetStart(const std::string& file) { meet(file, nullptr); }

    // Visits the first file waiting and meets its includes; false when no
    // file is waiting.
    bool visitNext(const VisitReport& report)
    {
        if (waiting.empty())
            return false;
        Pending next = waiting.front();
        waiting.pop_front();
        Visit done = visit(rules, *next.file, next.caller);
        report(done);
        for (const std::string& included : done.includes)
            meet(included, next.file);
        ++visited;
        return true;
    }

    std::size_t visitedCount() const { return visited; }
    std::size_t waitingCount() const { return waiting.size(); }

private:
    // A file waiting for its visit. Both names point into `met`, whose
    // elements stay where they are, so that a name is held only once.
    struct Pending {
        const std::string* file;
        const std::string* caller;  // null for a start file
    };

    void meet(const std::string& file, const std::string* caller)
    {
        auto [element, isNew] = met.insert(file);
        if (isNew)
            waiting.push_back({&*element, caller});
    }

    QuorelScript::Rules& rules;
    std::unordered_set<std::string> met;
    std::deque<Pending> waiting;
    std::size_t visited = 0;
};

} // namespace

void walk(QuorelScript::Rules& rules, OperandReader& starts, const VisitReport& report, Progress& progress)
{
    Walker walker(rules);
    std::string start;
    while (starts.next(start))
        walker.meetStart(start);
    while (walker.visitNext(report))
        progress.update(walker.visitedCount(), walker.waitingCount());
}

} // namespace qxqr
