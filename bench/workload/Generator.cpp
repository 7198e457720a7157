// SPDX-License-Identifier: MIT
#include "Generator.hpp"

#include <random>
#include <utility>

namespace qxqr::bench {

namespace {

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t bound) {
    return random() % bound;
}

// Fisher-Yates, written out because std::shuffle's choices differ between
// standard libraries.
template <class T>
void shuffle(Random& random, std::vector<T>& items) {
    for (std::size_t left = items.size(); left > 1; --left)
        std::swap(items[left - 1], items[below(random, left)]);
}

template <class T>
const T& oneOf(Random& random, const std::vector<T>& choices) {
    return choices[below(random, choices.size())];
}

// Each form makes rule number `n` (which keeps the rules' paths apart).
using RuleForm = Rule (*)(RuleKind, const std::string& n, Random&);

Rule prefixList(RuleKind kind, const std::string& n, Random& random) {
    std::vector<std::string> prefixes = {"$vantor/lib/pkg" + n + "/", "$cwd/build/out" + n + "/",
                                         "/usr/include/sys" + n + "/", "$cwd/third_party/lib" + n + "/"};
    shuffle(random, prefixes);
    prefixes.resize(2 + below(random, 3));
    std::string hit = oneOf(random, prefixes) + "{stem}.h";
    return {kind, {{FileVariable::file, Comparison::startsWith, prefixes}}, {}, hit};
}

Rule extension(RuleKind kind, const std::string& n, Random&) {
    return {kind, {{FileVariable::ext, Comparison::equals, {".x" + n}}}, {}, "$cwd/src/app/{stem}.x" + n};
}

Rule toolbox(RuleKind kind, const std::string& n, Random&) {
    return {kind,
            {{FileVariable::file, Comparison::startsWith, {"$toolbox/pkg" + n + "/"}}},
            {},
            "$toolbox/pkg" + n + "/{stem}.h"};
}

Rule module(RuleKind kind, const std::string& n, Random&) {
    return {
        kind,
        {{FileVariable::ext, Comparison::equals, {"$vrk"}}, {FileVariable::name, Comparison::equals, {"plugin" + n}}},
        {},
        "$cwd/plugins/plugin" + n + "$vrk"};
}

Rule directoryButOneName(RuleKind kind, const std::string& n, Random&) {
    return {kind,
            {{FileVariable::dir, Comparison::equals, {"$cwd/src/mod" + n}},
             {FileVariable::name, Comparison::equals, {"main" + n}, true}},
            {},
            "$cwd/src/mod" + n + "/{stem}.c"};
}

Rule headerOfSource(RuleKind kind, const std::string& n, Random&) {
    return {kind, {{FileVariable::ext, Comparison::equals, {".c" + n}}}, {"$dir/$name.h"}, "$cwd/src/app/{stem}.c" + n};
}

Rule headersOfLibrary(RuleKind kind, const std::string& n, Random&) {
    return {kind,
            {{FileVariable::dir, Comparison::equals, {"$cwd/src/lib" + n}}},
            {"$dir/$name.h", "$cwd/include/lib" + n + "/$name.h"},
            "$cwd/src/lib" + n + "/{stem}.c"};
}

Rule moduleOfLibrary(RuleKind kind, const std::string& n, Random&) {
    return {kind,
            {{FileVariable::file, Comparison::startsWith, {"$vantor/lib/mod" + n + "/"}}},
            {"$vantor/modules/$name$vrk"},
            "$vantor/lib/mod" + n + "/{stem}.so"};
}

const std::vector<RuleForm>& formsOf(RuleKind kind) {
    static const std::vector<RuleForm> exclude = {prefixList, extension, toolbox, module};
    static const std::vector<RuleForm> prune = {prefixList, extension, directoryButOneName};
    static const std::vector<RuleForm> include = {headerOfSource, headersOfLibrary, moduleOfLibrary};
    switch (kind) {
    case RuleKind::prune:
        return prune;
    case RuleKind::include:
        return include;
    case RuleKind::exclude:
        break;
    }
    return exclude;
}

RuleKind kindOfRule(std::size_t index) {
    static const RuleKind cycle[] = {RuleKind::exclude, RuleKind::prune, RuleKind::exclude, RuleKind::include};
    return cycle[index % 4];
}

// Files of the project that no generated rule names.
const std::vector<std::string> missExamples = {"$cwd/src/app/{stem}.c", "$cwd/src/app/{stem}.h",
                                               "$cwd/include/{stem}.h", "$vantor/lib/core/{stem}.so"};

} // namespace

std::string exampleFile(const std::string& example, const Settings& settings, std::size_t stem) {
    std::string file = withHostValues(example, settings);
    std::size_t placeholder = file.find("{stem}");
    if (placeholder != std::string::npos)
        file.replace(placeholder, 6, "f" + std::to_string(stem));
    return file;
}

std::vector<Rule> generateRules(std::size_t count, std::uint32_t seed) {
    Random random(seed);
    std::vector<Rule> rules;
    for (std::size_t index = 0; index < count; ++index) {
        RuleKind kind = kindOfRule(index);
        rules.push_back(oneOf(random, formsOf(kind))(kind, std::to_string(index + 1), random));
    }
    return rules;
}

std::vector<std::string> generateQueries(const std::vector<Rule>& rules, const Settings& settings, std::size_t count,
                                         std::uint32_t seed) {
    Random random(seed);
    std::vector<std::string> files;
    for (std::size_t index = 0; index < count; ++index) {
        bool hit = !rules.empty() && below(random, 2) == 0;
        const std::string& example = hit ? oneOf(random, rules).hitExample : oneOf(random, missExamples);
        files.push_back(exampleFile(example, settings, below(random, 100000)));
    }
    return files;
}

} // namespace qxqr::bench
