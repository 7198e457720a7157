// SPDX-License-Identifier: MIT
#include "expr/Bindings.hpp"

#include <gtest/gtest.h>

#include <string>
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

struct FileParts {
    std::string dir, name, ext;
};

FileParts partsOf(const char* file) {
    const Bindings bindings("/v", file, "/c", "/w");
    return {valueOf(bindings, "dir"), valueOf(bindings, "name"), valueOf(bindings, "ext")};
}

} // namespace

TEST(Bindings, FullConstructorBindsElevenVariables) {
    const Bindings bindings("/opt/v", "/src/main.c", "/src/caller.c", "/work");
    EXPECT_EQ(namesOf(bindings), (std::vector<std::string>{"arch", "caller", "cwd", "dir", "ext", "file", "lib",
                                                          "name", "toolbox", "vantor", "vrk"}));
    EXPECT_EQ(valueOf(bindings, "vantor"), "/opt/v");
    EXPECT_EQ(valueOf(bindings, "toolbox"), "/opt/v/toolbox");
    EXPECT_EQ(valueOf(bindings, "file"), "/src/main.c");
    EXPECT_EQ(valueOf(bindings, "caller"), "/src/caller.c");
    EXPECT_EQ(valueOf(bindings, "cwd"), "/work");
    EXPECT_EQ(valueOf(bindings, "dir"), "/src");
    EXPECT_EQ(valueOf(bindings, "name"), "main");
    EXPECT_EQ(valueOf(bindings, "ext"), ".c");
    EXPECT_EQ(valueOf(bindings, "vrk"), ".vrkilx");
    EXPECT_EQ(valueOf(bindings, "arch"), "ia32lx");
    EXPECT_EQ(valueOf(bindings, "lib"), ".so");
}

TEST(Bindings, ShortConstructorLeavesOutVantorToolboxAndCwd) {
    const Bindings bindings("/src/main.c", "/src/caller.c");
    EXPECT_EQ(namesOf(bindings),
              (std::vector<std::string>{"arch", "caller", "dir", "ext", "file", "lib", "name", "vrk"}));
    EXPECT_EQ(valueOf(bindings, "file"), "/src/main.c");
    EXPECT_EQ(valueOf(bindings, "caller"), "/src/caller.c");
    EXPECT_EQ(valueOf(bindings, "dir"), "/src");
    EXPECT_EQ(valueOf(bindings, "name"), "main");
    EXPECT_EQ(valueOf(bindings, "ext"), ".c");
    EXPECT_EQ(valueOf(bindings, "vrk"), ".vrkilx");
    EXPECT_EQ(valueOf(bindings, "arch"), "ia32lx");
    EXPECT_EQ(valueOf(bindings, "lib"), ".so");
}

TEST(Bindings, ShortConstructorTakesANullFileOrCallerAsEmpty) {
    const Bindings bindings(nullptr, nullptr);
    EXPECT_EQ(valueOf(bindings, "file"), "");
    EXPECT_EQ(valueOf(bindings, "caller"), "");
    EXPECT_EQ(valueOf(bindings, "dir"), "");
    EXPECT_EQ(valueOf(bindings, "name"), "");
    EXPECT_EQ(valueOf(bindings, "ext"), "");
}

TEST(Bindings, SplitsAPathWithSeveralDots) {
    const FileParts parts = partsOf("/a/b/c.d.e");
    EXPECT_EQ(parts.dir, "/a/b");
    EXPECT_EQ(parts.name, "c.d");
    EXPECT_EQ(parts.ext, ".e");
}

TEST(Bindings, BareNameHasNoDirectoryAndNoExtension) {
    const FileParts parts = partsOf("c");
    EXPECT_EQ(parts.dir, "");
    EXPECT_EQ(parts.name, "c");
    EXPECT_EQ(parts.ext, "");
}

TEST(Bindings, FileInTheRootHasAnEmptyDirectory) {
    const FileParts parts = partsOf("/c.m");
    EXPECT_EQ(parts.dir, "");
    EXPECT_EQ(parts.name, "c");
    EXPECT_EQ(parts.ext, ".m");
}

TEST(Bindings, LeadingDotIsNoExtension) {
    const FileParts parts = partsOf(".profile");
    EXPECT_EQ(parts.dir, "");
    EXPECT_EQ(parts.name, ".profile");
    EXPECT_EQ(parts.ext, "");
}

TEST(Bindings, DotInADirectoryNameIsNoExtension) {
    const FileParts parts = partsOf("a.b/c");
    EXPECT_EQ(parts.dir, "a.b");
    EXPECT_EQ(parts.name, "c");
    EXPECT_EQ(parts.ext, "");
}

TEST(Bindings, DotRightAfterTheLastSlashIsAnExtension) {
    const FileParts parts = partsOf("x/.hidden");
    EXPECT_EQ(parts.dir, "x");
    EXPECT_EQ(parts.name, "");
    EXPECT_EQ(parts.ext, ".hidden");
}

TEST(Bindings, NullFileLeavesFileAndItsPartsEmpty) {
    const Bindings bindings("/v", nullptr, "/c", "/w");
    EXPECT_EQ(valueOf(bindings, "file"), "");
    EXPECT_EQ(valueOf(bindings, "dir"), "");
    EXPECT_EQ(valueOf(bindings, "name"), "");
    EXPECT_EQ(valueOf(bindings, "ext"), "");
}

TEST(Bindings, NullRootAndCwdAreTheCurrentDirectory) {
    const Bindings bindings(nullptr, "/f", nullptr, nullptr);
    EXPECT_EQ(valueOf(bindings, "vantor"), ".");
    EXPECT_EQ(valueOf(bindings, "toolbox"), "./toolbox");
    EXPECT_EQ(valueOf(bindings, "cwd"), ".");
    EXPECT_EQ(valueOf(bindings, "caller"), "");
}

TEST(Bindings, EmptyRootGivesAnEmptyVantorAndARootToolbox) {
    const Bindings bindings("", "/f", "", "");
    EXPECT_EQ(valueOf(bindings, "vantor"), "");
    EXPECT_EQ(valueOf(bindings, "toolbox"), "/toolbox");
    EXPECT_EQ(valueOf(bindings, "cwd"), "");
}

TEST(Bindings, ToolboxJointIsNormalized) {
    const Bindings bindings("/opt/v/", "/f", "", "");
    EXPECT_EQ(valueOf(bindings, "vantor"), "/opt/v/");
    EXPECT_EQ(valueOf(bindings, "toolbox"), "/opt/v/toolbox");
}

TEST(Bindings, ArgumentsAreNormalized) {
    const Bindings bindings(" /opt//v ", "//src//main.c\n", "/a//b", "\t/w//x");
    EXPECT_EQ(valueOf(bindings, "vantor"), "/opt/v");
    // Made from the normalized root, not from the root as given.
    EXPECT_EQ(valueOf(bindings, "toolbox"), "/opt/v/toolbox");
    EXPECT_EQ(valueOf(bindings, "file"), "/src/main.c");
    EXPECT_EQ(valueOf(bindings, "caller"), "/a/b");
    EXPECT_EQ(valueOf(bindings, "cwd"), "/w/x");
    EXPECT_EQ(valueOf(bindings, "dir"), "/src");
}

// The pieces of the file path are cut from its normalized text and kept as
// they are: a blank that ends a piece stays, where normalizing would drop it.
TEST(Bindings, FilePartsAreNotNormalizedAgain) {
    const FileParts parts = partsOf("/a /b .c");
    EXPECT_EQ(parts.dir, "/a ");
    EXPECT_EQ(parts.name, "b ");
    EXPECT_EQ(parts.ext, ".c");
}

TEST(Bindings, FixedVariablesAreMadeOnceForAllQueries) {
    const Bindings first("/v", "/f", "/c", "/w");
    const Bindings second(nullptr, nullptr);
    for (const char* name : {"vrk", "arch", "lib"}) {
        const Path key{std::string(name)};
        EXPECT_EQ(first.at(key).normalizer(), second.at(key).normalizer()) << name;
    }
}
