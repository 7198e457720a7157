// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"

namespace qxqr {

const char* nameOf(Link link)
{
    switch (link) {
    case Link::interpreter:
        return "interpreter";
    case Link::needed:
        return "needed";
    case Link::included:
        return "included";
    case Link::start:
        break;
    }
    return "start";
}

const char* fateName(const Dependency& dependency)
{
    return dependency.found ? nameOf(dependency.visit.fate) : "not found";
}

bool FirstMeetings::first(const Dependency& dependency)
{
    if (dependency.found)
        return files.insert(dependency.identity).second;
    return missing.emplace(dependency.name, dependency.visit.caller.value_or("")).second;
}

void DependencyCounts::count(const Dependency& dependency)
{
    if (!dependency.found) {
        ++notFound;
        return;
    }
    switch (dependency.visit.fate) {
    case Fate::kept:
        ++kept;
        break;
    case Fate::excluded:
        ++excluded;
        break;
    case Fate::pruned:
        ++pruned;
        break;
    }
}

} // namespace qxqr
