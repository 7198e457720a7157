// SPDX-License-Identifier: MIT
#include "Workload.hpp"

#include "Generator.hpp"

#include <map>

namespace qxqr::bench {

namespace {

constexpr std::uint32_t ruleSeed = 20240611;
constexpr std::uint32_t querySeed = 11062024;

Workload generate(std::size_t ruleCount) {
    Workload made;
    made.rules = generateRules(ruleCount, ruleSeed);
    made.script = scriptText(made.rules);
    made.queries = generateQueries(made.rules, made.settings, queryCount, querySeed);
    made.caller = made.settings.cwd + "/src/main.c";
    return made;
}

std::string disjunctions(std::size_t count) {
    std::string text;
    for (std::size_t n = 1; n <= count; ++n) {
        const std::string number = std::to_string(n);
        text += "exclude if $file == /p/" + number + ".c or $ext == .o" + number + "\n";
    }
    return text;
}

} // namespace

const std::string& disjunctionScript() {
    static const std::string text = disjunctions(disjunctionCount);
    return text;
}

const Workload& workload(std::size_t ruleCount) {
    static std::map<std::size_t, Workload> made;
    auto found = made.find(ruleCount);
    if (found == made.end())
        found = made.emplace(ruleCount, generate(ruleCount)).first;
    return found->second;
}

} // namespace qxqr::bench
