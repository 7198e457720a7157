// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"

namespace qxqr {

const char* nameOf(Link link) {
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

const char* relationOf(Link link) {
    switch (link) {
    case Link::interpreter:
        return "interpreter of ";
    case Link::included:
        return "included by ";
    default:
        return "needed by ";
    }
}

const char* fateName(const Dependency& dependency) {
    return dependency.found ? nameOf(dependency.visit.fate) : "not found";
}

bool FirstMeetings::first(const Dependency& dependency) {
    if (dependency.found)
        return files.insert(dependency.identity).second;
    return missing.emplace(dependency.name, dependency.visit.caller.value_or("")).second;
}

void DependencyCounts::count(const Dependency& dependency) {
    if (!dependency.found) {
        if (needs.first(dependency))
            ++notFoundCount;
        return;
    }
    auto [place, isNew] = fates.emplace(dependency.identity, dependency.visit.fate);
    if (!isNew && keepsMore(dependency.visit.fate, place->second))
        place->second = dependency.visit.fate;
}

std::size_t DependencyCounts::of(Fate fate) const {
    std::size_t count = 0;
    for (const auto& file : fates)
        count += file.second == fate;
    return count;
}

} // namespace qxqr
