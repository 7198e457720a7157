#include "Walk.hpp"

#include "IncludeList.hpp"
#include "Progress.hpp"

#include <deque>
#include <set>
#include <utility>

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

struct Pending {
    std::string file;
    std::optional<std::string> caller;
};

// Decides one file's fate; for a kept file also asks what it includes.
Visit visit(QuorelScript::Rules& rules, Pending pending)
{
    Visit result{std::move(pending.file), std::move(pending.caller), Fate::kept, std::nullopt, {}};
    const char* caller = result.caller ? result.caller->c_str() : nullptr;
    if (rules.isExcluded(result.file.c_str(), nullptr, caller))
        result.fate = Fate::excluded;
    else if (rules.isPruned(result.file.c_str(), nullptr, caller))
        result.fate = Fate::pruned;
    if (result.fate == Fate::kept)
        result.includes = IncludeList::of(rules, result.file);
    else
        result.rule = rules.getLastMatchText();
    return result;
}

} // namespace

std::vector<Visit> walk(QuorelScript::Rules& rules, const std::vector<std::string>& starts, Progress& progress)
{
    std::vector<Visit> visits;
    std::set<std::string> met;
    std::deque<Pending> waiting;
    auto meet = [&](const std::string& file, const std::optional<std::string>& caller) {
        if (met.insert(file).second)
            waiting.push_back({file, caller});
    };

    for (const std::string& start : starts)
        meet(start, std::nullopt);
    while (!waiting.empty()) {
        Pending next = std::move(waiting.front());
        waiting.pop_front();
        visits.push_back(visit(rules, std::move(next)));
        for (const std::string& included : visits.back().includes)
            meet(included, visits.back().file);
        progress.update(visits.size(), waiting.size());
    }
    return visits;
}

} // namespace qxqr
