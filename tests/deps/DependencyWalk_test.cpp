// SPDX-License-Identifier: MIT
#include "DependencyWalk.hpp"
#include "ElfImage.hpp"

#include "TempTree.hpp"

#include <qxqrscript/Parser.hpp>

#include <elf.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace qxqr {
namespace {

using test::ElfImage;
using Lines = std::vector<std::string>;

// A system under a temporary root: a program /app/bin/app with the
// interpreter /lib64/ld.so, and the libraries a test puts in /usr/lib.
class DependencyWalkTest : public testing::Test {
protected:
    void program(std::vector<std::string> needed) {
        ElfImage image = ElfImage::library(std::move(needed));
        image.type = ET_EXEC;
        image.interpreter = "/lib64/ld.so";
        root.file("app/bin/app", image.bytes());
        library("/lib64/ld.so", {}, "ld.so");
    }

    void library(const std::string& systemPath, std::vector<std::string> needed = {},
                 std::optional<std::string> soname = std::nullopt) {
        ElfImage image = ElfImage::library(std::move(needed));
        image.soname = std::move(soname);
        root.file(systemPath.substr(1), image.bytes());
    }

    void rules(const std::string& script) {
        QuorelScript::Parser parser;
        ruleSet.reset(parser.parse(script.c_str()));
        ASSERT_TRUE(ruleSet);
        ruleSet->setVantorRoot(root.path().c_str());
    }

    // Each report as a line: "LINK FILE FATE (CALLER)", paths inside the
    // root written from it, problems as "problem FILE: REASON".
    Lines walk(const std::vector<std::string>& starts) {
        ElfFiles files(root.path());
        LibrarySearch search({root.path(), "", {}}, files);
        DependencyWalk walker(ruleSet.get(), search, files);
        Lines lines;
        DependencyReport report{[&](const Dependency& met) {
                                    std::string line = std::string(linkName(met.link)) + " " + inRoot(met.visit.file) +
                                                       " " + (met.found ? fateName(met.visit.fate) : "not-found");
                                    if (met.visit.caller)
                                        line += " (" + inRoot(*met.visit.caller) + ")";
                                    lines.push_back(line);
                                },
                                [&](const std::string& file, const std::string& reason) {
                                    lines.push_back("problem " + inRoot(file) + ": " + reason);
                                }};
        for (const std::string& start : starts)
            walker.walkFrom(root.path(start), report);
        return lines;
    }

    std::string inRoot(const std::string& path) const {
        const std::string prefix = root.path();
        return path.compare(0, prefix.size(), prefix) == 0 ? path.substr(prefix.size()) : path;
    }

    static const char* linkName(Link link) {
        const char* names[] = {"start", "interpreter", "needed", "included"};
        return names[static_cast<int>(link)];
    }

    static const char* fateName(Fate fate) { return nameOf(fate); }

    TempTree root;
    std::unique_ptr<QuorelScript::Rules> ruleSet;
};

TEST_F(DependencyWalkTest, MeetsTheClosureBreadthFirstEachFileOnce) {
    program({"liba.so.1", "libb.so.1"});
    library("/usr/lib/liba.so.1", {"libb.so.1", "libc.so.1", "ld.so"});
    library("/usr/lib/libb.so.1", {"liba.so.1", "libgone.so.1"});
    library("/usr/lib/libc.so.1");
    EXPECT_EQ(walk({"app/bin/app"}), (Lines{
                                         "start /app/bin/app kept",
                                         "interpreter /lib64/ld.so kept (/app/bin/app)",
                                         "needed /usr/lib/liba.so.1 kept (/app/bin/app)",
                                         "needed /usr/lib/libb.so.1 kept (/app/bin/app)",
                                         "needed /usr/lib/libc.so.1 kept (/usr/lib/liba.so.1)",
                                         "needed libgone.so.1 not-found (/usr/lib/libb.so.1)",
                                     }));
}

TEST_F(DependencyWalkTest, ASonameAnswersANeedOfThatName) {
    program({"libone.so", "libtwo.so"});
    library("/usr/lib/libone.so", {}, "libshared.so.1");
    library("/usr/lib/libtwo.so", {"libshared.so.1"});
    library("/usr/lib/libshared.so.1");
    EXPECT_EQ(walk({"app/bin/app"}).size(), 4u); // the program, the interpreter, libone, libtwo
}

TEST_F(DependencyWalkTest, AFileReachedByTwoNamesIsLoadedOnce) {
    program({"libreal.so.1", "liblink.so.1"});
    library("/usr/lib/libreal.so.1");
    std::filesystem::create_symlink("libreal.so.1", root.path("usr/lib/liblink.so.1"));
    EXPECT_EQ(walk({"app/bin/app"}).size(), 3u);
}

TEST_F(DependencyWalkTest, TheRulesExcludePruneAndInclude) {
    program({"libexcluded.so.1", "libpruned.so.1", "libkept.so.1"});
    library("/usr/lib/libexcluded.so.1", {"libbehind.so.1"});
    library("/usr/lib/libpruned.so.1", {"libbehind.so.1"});
    library("/usr/lib/libkept.so.1", {"libexcluded.so.1"});
    library("/usr/lib/libbehind.so.1");
    library("/app/plugins/libplugin.so", {"libplugindep.so.1"});
    library("/usr/lib/libplugindep.so.1");
    root.file("app/plugins/readme.txt", "not a library\n");
    rules("exclude if $name == libexcluded.so\n"
          "prune if $name == libpruned.so\n"
          "include $vantor/app/plugins if $dir == $vantor/app/bin\n");
    EXPECT_EQ(walk({"app/bin/app"}), (Lines{
                                         "start /app/bin/app kept",
                                         "interpreter /lib64/ld.so kept (/app/bin/app)",
                                         "needed /usr/lib/libexcluded.so.1 excluded (/app/bin/app)",
                                         "needed /usr/lib/libpruned.so.1 pruned (/app/bin/app)",
                                         "needed /usr/lib/libkept.so.1 kept (/app/bin/app)",
                                         "included /app/plugins/libplugin.so kept (/app/bin/app)",
                                         "included /app/plugins/readme.txt kept (/app/bin/app)",
                                         "needed /usr/lib/libplugindep.so.1 kept (/app/plugins/libplugin.so)",
                                     }));
}

// A rule on $caller decides per caller; what any caller keeps is kept, and
// followed from the caller that keeps it.
TEST_F(DependencyWalkTest, TheFateThatKeepsTheMostOverTheCallersWins) {
    program({"libx.so.1", "liba.so.1", "libk.so.1"});
    library("/usr/lib/libx.so.1", {"libbehind.so.1"});
    library("/usr/lib/liba.so.1", {"libx.so.1", "libk.so.1", "libp.so.1"});
    library("/usr/lib/libk.so.1");
    library("/usr/lib/libp.so.1", {"libdeep.so.1"});
    library("/usr/lib/libbehind.so.1", {"libp.so.1"});
    library("/usr/lib/libdeep.so.1");
    rules("exclude if $name == libx.so and $caller == $vantor/app/bin/app\n"
          "exclude if $name == libk.so and $caller == $vantor/usr/lib/liba.so.1\n"
          "prune if $name == libp.so and $caller == $vantor/usr/lib/liba.so.1\n");
    EXPECT_EQ(walk({"app/bin/app"}), (Lines{
                                         "start /app/bin/app kept",
                                         "interpreter /lib64/ld.so kept (/app/bin/app)",
                                         "needed /usr/lib/libx.so.1 kept (/usr/lib/liba.so.1)",
                                         "needed /usr/lib/liba.so.1 kept (/app/bin/app)",
                                         "needed /usr/lib/libk.so.1 kept (/app/bin/app)",
                                         "needed /usr/lib/libp.so.1 kept (/usr/lib/libbehind.so.1)",
                                         "needed /usr/lib/libbehind.so.1 kept (/usr/lib/libx.so.1)",
                                         "needed /usr/lib/libdeep.so.1 kept (/usr/lib/libp.so.1)",
                                     }));
}

TEST_F(DependencyWalkTest, AnExcludedOrPrunedStartFileIsNotFollowed) {
    program({"liba.so.1"});
    library("/usr/lib/liba.so.1");
    rules("prune if $name == app\n");
    EXPECT_EQ(walk({"app/bin/app"}), (Lines{"start /app/bin/app pruned"}));
    rules("exclude if $name == app\n");
    EXPECT_EQ(walk({"app/bin/app"}), (Lines{"start /app/bin/app excluded"}));
}

TEST_F(DependencyWalkTest, EachStartFileIsAProcessOfItsOwn) {
    program({"liba.so.1"});
    library("/usr/lib/liba.so.1");
    EXPECT_EQ(walk({"app/bin/app", "app/bin/app"}).size(), 6u);
}

TEST_F(DependencyWalkTest, AStartFileThatCannotBeWalkedIsAProblemAndTheWalkGoesOn) {
    program({});
    root.file("notes.txt", "hello\n");
    std::filesystem::create_symlink("loop", root.path("loop"));
    EXPECT_EQ(walk({"notes.txt", "missing", "loop", "app/bin/app"}),
              (Lines{
                  "problem /notes.txt: not an ELF file",
                  "problem /missing: No such file or directory",
                  "problem /loop: Too many levels of symbolic links",
                  "start /app/bin/app kept",
                  "interpreter /lib64/ld.so kept (/app/bin/app)",
              }));
}

TEST_F(DependencyWalkTest, AMalformedLibraryIsAProblemNamingIt) {
    program({"libbad.so.1", "libgood.so.1"});
    std::string bad = ElfImage::library({"libc.so.6"}).bytes();
    root.file("usr/lib/libbad.so.1", bad.substr(0, 40));
    library("/usr/lib/libgood.so.1");
    Lines lines = walk({"app/bin/app"});
    ASSERT_EQ(lines.size(), 4u);
    // Problems are told as they are met, the closure once it is known.
    EXPECT_EQ(lines[0].rfind("problem /usr/lib/libbad.so.1: ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find("(needed by " + root.path("app/bin/app") + ")"), std::string::npos) << lines[0];
    EXPECT_EQ(lines[3], "needed /usr/lib/libgood.so.1 kept (/app/bin/app)");
}

// Every object that needs the name of a file that cannot be used meets that
// file again, in one process and in the next; it is told once.
TEST_F(DependencyWalkTest, AFileThatCannotBeUsedIsToldOnceHoweverManyNeedIt) {
    program({"libbad.so.1", "liba.so.1"});
    root.file("usr/lib/libbad.so.1", "INPUT(-lbad)\n");
    library("/usr/lib/liba.so.1", {"libbad.so.1"});
    EXPECT_EQ(walk({"app/bin/app", "app/bin/app"}),
              (Lines{
                  "problem /usr/lib/libbad.so.1: not an ELF file (needed by " + root.path("app/bin/app") + ")",
                  "start /app/bin/app kept",
                  "interpreter /lib64/ld.so kept (/app/bin/app)",
                  "needed /usr/lib/liba.so.1 kept (/app/bin/app)",
                  "start /app/bin/app kept",
                  "interpreter /lib64/ld.so kept (/app/bin/app)",
                  "needed /usr/lib/liba.so.1 kept (/app/bin/app)",
              }));
}

} // namespace
} // namespace qxqr
