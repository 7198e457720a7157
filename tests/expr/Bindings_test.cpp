// SPDX-License-Identifier: MIT
#include "expr/Bindings.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

using QuorelScript::Bindings;
using QuorelScript::Path;

namespace {

std::string valueOf(const Bindings& bindings, const char* name) {
    return bindings.at(Path(std::string(name))).text();
}

std::vector<std::string> namesOf(const Bindings& bindings) {
    std::vector<std::string> names;
    for (const auto& binding : bindings)
        names.push_back(binding.first.text());
    return names;
}

// The arguments of one of the two constructors: the full one when a root
// and a current directory are given, the short one (file and caller only)
// when they are not.
struct Arguments {
    const char* file;
    const char* caller;
    std::optional<std::pair<const char*, const char*>> rootAndCwd;

    Bindings made() const {
        if (rootAndCwd)
            return Bindings(rootAndCwd->first, file, caller, rootAndCwd->second);
        return Bindings(file, caller);
    }
};

Arguments full(const char* root, const char* file, const char* caller, const char* cwd) {
    return {file, caller, std::make_pair(root, cwd)};
}

Arguments shortForm(const char* file, const char* caller) {
    return {file, caller, std::nullopt};
}

using Values = std::vector<std::pair<const char*, const char*>>;

// One case of the table: the bindings made from `arguments` hold each of
// `expected`, a variable's name with its value.
struct Case {
    const char* name;
    Arguments arguments;
    Values expected;
};

// Names the case in a failure, as the row's name does in the test's name.
void PrintTo(const Case& row, std::ostream* out) {
    *out << row.name;
}

// The file parts of `file`, made from the full constructor with fixed
// other arguments.
Arguments fileOnly(const char* file) {
    return full("/v", file, "/c", "/w");
}

Values joined(Values first, const Values& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// What both constructors bind for the file /src/main.c met from /src/caller.c.
const Values mainFromCaller = {
    {"file", "/src/main.c"}, {"caller", "/src/caller.c"}, {"dir", "/src"},    {"name", "main"},
    {"ext", ".c"},           {"vrk", ".vrkilx"},          {"arch", "ia32lx"}, {"lib", ".so"}};

const Case cases[] = {
    {"FullConstructorBindsEveryValue", full("/opt/v", "/src/main.c", "/src/caller.c", "/work"),
     joined({{"vantor", "/opt/v"}, {"toolbox", "/opt/v/toolbox"}, {"cwd", "/work"}}, mainFromCaller)},
    {"ShortConstructorBindsTheFileAndTheFixedValues", shortForm("/src/main.c", "/src/caller.c"), mainFromCaller},
    {"ShortConstructorTakesANullFileOrCallerAsEmpty",
     shortForm(nullptr, nullptr),
     {{"file", ""}, {"caller", ""}, {"dir", ""}, {"name", ""}, {"ext", ""}}},
    {"SplitsAPathWithSeveralDots", fileOnly("/a/b/c.d.e"), {{"dir", "/a/b"}, {"name", "c.d"}, {"ext", ".e"}}},
    {"BareNameHasNoDirectoryAndNoExtension", fileOnly("c"), {{"dir", ""}, {"name", "c"}, {"ext", ""}}},
    {"FileInTheRootHasAnEmptyDirectory", fileOnly("/c.m"), {{"dir", ""}, {"name", "c"}, {"ext", ".m"}}},
    {"LeadingDotIsNoExtension", fileOnly(".profile"), {{"dir", ""}, {"name", ".profile"}, {"ext", ""}}},
    {"DotInADirectoryNameIsNoExtension", fileOnly("a.b/c"), {{"dir", "a.b"}, {"name", "c"}, {"ext", ""}}},
    {"DotRightAfterTheLastSlashIsAnExtension", fileOnly("x/.hidden"), {{"dir", "x"}, {"name", ""}, {"ext", ".hidden"}}},
    // The pieces of the file path are cut from its normalized text and kept
    // as they are: a blank that ends a piece stays, where normalizing would
    // drop it.
    {"FilePartsAreNotNormalizedAgain", fileOnly("/a /b .c"), {{"dir", "/a "}, {"name", "b "}, {"ext", ".c"}}},
    {"NullFileLeavesFileAndItsPartsEmpty", fileOnly(nullptr), {{"file", ""}, {"dir", ""}, {"name", ""}, {"ext", ""}}},
    {"NullRootAndCwdAreTheCurrentDirectory",
     full(nullptr, "/f", nullptr, nullptr),
     {{"vantor", "."}, {"toolbox", "./toolbox"}, {"cwd", "."}, {"caller", ""}}},
    {"EmptyRootGivesAnEmptyVantorAndARootToolbox",
     full("", "/f", "", ""),
     {{"vantor", ""}, {"toolbox", "/toolbox"}, {"cwd", ""}}},
    {"ToolboxJointIsNormalized", full("/opt/v/", "/f", "", ""), {{"vantor", "/opt/v/"}, {"toolbox", "/opt/v/toolbox"}}},
    // The toolbox is made from the normalized root, not from the root as given.
    {"ArgumentsAreNormalized",
     full(" /opt//v ", "//src//main.c\n", "/a//b", "\t/w//x"),
     {{"vantor", "/opt/v"},
      {"toolbox", "/opt/v/toolbox"},
      {"file", "/src/main.c"},
      {"caller", "/a/b"},
      {"cwd", "/w/x"},
      {"dir", "/src"}}},
};

class BindingsValues : public testing::TestWithParam<Case> {};

} // namespace

TEST_P(BindingsValues, HoldTheExpectedValues) {
    const Case& row = GetParam();
    const Bindings bindings = row.arguments.made();
    for (const auto& [name, value] : row.expected)
        EXPECT_EQ(valueOf(bindings, name), value) << "$" << name;
}

INSTANTIATE_TEST_SUITE_P(Bindings, BindingsValues, testing::ValuesIn(cases),
                         [](const testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

TEST(Bindings, FullConstructorBindsElevenVariables) {
    const Bindings bindings("/opt/v", "/src/main.c", "/src/caller.c", "/work");
    EXPECT_EQ(namesOf(bindings), (std::vector<std::string>{"arch", "caller", "cwd", "dir", "ext", "file", "lib", "name",
                                                           "toolbox", "vantor", "vrk"}));
}

TEST(Bindings, ShortConstructorLeavesOutVantorToolboxAndCwd) {
    const Bindings bindings("/src/main.c", "/src/caller.c");
    EXPECT_EQ(namesOf(bindings),
              (std::vector<std::string>{"arch", "caller", "dir", "ext", "file", "lib", "name", "vrk"}));
}

TEST(Bindings, FixedVariablesAreMadeOnceForAllQueries) {
    const Bindings first("/v", "/f", "/c", "/w");
    const Bindings second(nullptr, nullptr);
    for (const char* name : {"vrk", "arch", "lib"}) {
        const Path key{std::string(name)};
        EXPECT_EQ(first.at(key).normalizer(), second.at(key).normalizer()) << name;
    }
}
