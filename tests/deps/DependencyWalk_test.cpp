// SPDX-License-Identifier: MIT
#include "DependencyWalk.hpp"
#include "ElfImage.hpp"

#include "TempTree.hpp"

#include <qxqrscript/Parser.hpp>

#include <elf.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>

namespace qxqr {
namespace {

using test::ElfImage;
using Lines = std::vector<std::string>;

// The rules of a walk, each question counted as it is asked: how many
// times isExcluded was asked of each file through each caller ("-" for a
// start file); the answers are the rules' own.
class CountingRules : public QuorelScript::Rules {
public:
    explicit CountingRules(QuorelScript::Rules& rules) : rules(rules) {}

    bool isExcluded(const char* file, const char* reserved, const char* caller) override {
        ++asked[{file, caller ? caller : "-"}];
        return rules.isExcluded(file, reserved, caller);
    }
    bool isPruned(const char* file, const char* reserved, const char* caller) override {
        return rules.isPruned(file, reserved, caller);
    }
    void getIncludes(const char* file, const char* reserved, QuorelRules::Includer& includer) override {
        rules.getIncludes(file, reserved, includer);
    }
    void setVantorRoot(const char* root) override { rules.setVantorRoot(root); }
    void setCwd(const char* dir) override { rules.setCwd(dir); }
    int setCwdFromProcess() override { return rules.setCwdFromProcess(); }
    void bindVariable(const char* name, const char* value) override { rules.bindVariable(name, value); }
    void precompute() override { rules.precompute(); }
    std::ostream& print(std::ostream& os) const override { return rules.print(os); }
    const std::string& getLastMatchText() const override { return rules.getLastMatchText(); }

    std::map<std::pair<std::string, std::string>, int> asked;

private:
    QuorelScript::Rules& rules;
};

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
        ASSERT_TRUE(ruleSet) << script;
        ruleSet->setVantorRoot(root.path().c_str());
    }

    // Each report as a line: "LINK FILE FATE (CALLER)", paths inside the
    // root written from it, problems as "problem FILE: REASON".
    // Each report as "FILE <- CALLER, CALLER", every file of the process
    // that needs or includes it, in the order given.
    Lines callers(const std::vector<std::string>& starts) {
        ElfFiles files(root.path());
        LibrarySearch search({root.path(), "", {}}, files);
        DependencyWalk walker(ruleSet.get(), search, files);
        Lines lines;
        DependencyReport report{[&](const Dependency& met) {
                                    std::string line = inRoot(met.visit.file) + " <-";
                                    for (const Caller& caller : met.callers)
                                        line += " " + std::string(linkName(caller.link)) + ":" + inRoot(caller.file);
                                    lines.push_back(line);
                                },
                                [](const std::string&, const std::string&) {}};
        for (const std::string& start : starts)
            walker.walkFrom(root.path(start), report);
        return lines;
    }

    // With `verdicts`, each line adds the deciding rule and the includes;
    // `questions`, if given, receives the questions the walk asked the rules.
    Lines walk(const std::vector<std::string>& starts, QuorelScript::Rules* asked = nullptr, bool verdicts = false,
               std::set<std::string>* questions = nullptr) {
        ElfFiles files(root.path());
        LibrarySearch search({root.path(), "", {}}, files);
        DependencyWalk walker(asked ? asked : ruleSet.get(), search, files, valuesHoldVariables);
        Lines lines;
        DependencyReport report{[&](const Dependency& met) {
                                    std::string line = std::string(linkName(met.link)) + " " + inRoot(met.visit.file) +
                                                       " " + (met.found ? fateName(met.visit.fate) : "not-found");
                                    if (met.visit.caller)
                                        line += " (" + inRoot(*met.visit.caller) + ")";
                                    if (verdicts && met.visit.rule)
                                        line += " by " + *met.visit.rule;
                                    for (const std::string& included : met.visit.includes)
                                        if (verdicts)
                                            line += " + " + inRoot(included);
                                    lines.push_back(line);
                                },
                                [&](const std::string& file, const std::string& reason) {
                                    lines.push_back("problem " + inRoot(file) + ": " + reason);
                                }};
        for (const std::string& start : starts)
            walker.walkFrom(root.path(start), report);
        if (questions)
            for (const auto& [file, caller] : walker.questionsAsked())
                questions->insert(inRoot(file) + " (" + (caller ? inRoot(*caller) : "-") + ")");
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
    bool valuesHoldVariables = false; // what the walk is told of the configured values
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

// Every file that needs or includes a file is told, not only the one
// whose verdict decided: a library needed by two others, and a cycle.
TEST_F(DependencyWalkTest, EveryCallerOfAFileIsTold) {
    program({"liba.so.1", "libb.so.1", "libp.so.1"});
    library("/usr/lib/liba.so.1", {"libshared.so.1"});
    library("/usr/lib/libb.so.1", {"libshared.so.1", "libgone.so.1"});
    library("/usr/lib/libshared.so.1", {"libgone.so.1", "ld.so"});
    library("/usr/lib/libp.so.1", {"libq.so.1"});
    library("/usr/lib/libq.so.1", {"libp.so.1"});
    root.file("app/plugins/notes.txt", "not a library\n");
    rules("include $vantor/app/plugins/notes.txt if $name in [app, libshared.so]\n");
    EXPECT_EQ(callers({"app/bin/app"}), (Lines{
                                            "/app/bin/app <-",
                                            "/lib64/ld.so <- interpreter:/app/bin/app needed:/usr/lib/libshared.so.1",
                                            "/usr/lib/liba.so.1 <- needed:/app/bin/app",
                                            "/usr/lib/libb.so.1 <- needed:/app/bin/app",
                                            "/usr/lib/libp.so.1 <- needed:/app/bin/app needed:/usr/lib/libq.so.1",
                                            "/app/plugins/notes.txt <- included:/app/bin/app "
                                            "included:/usr/lib/libshared.so.1",
                                            "/usr/lib/libshared.so.1 <- needed:/usr/lib/liba.so.1 "
                                            "needed:/usr/lib/libb.so.1",
                                            "libgone.so.1 <- needed:/usr/lib/libb.so.1",
                                            "/usr/lib/libq.so.1 <- needed:/usr/lib/libp.so.1",
                                            "libgone.so.1 <- needed:/usr/lib/libshared.so.1",
                                        }));
}

// The rules answer each question once in a walk, however many start files
// and callers meet a file again, and the verdicts given again are the
// same: the fate, the deciding rule and the includes.
TEST_F(DependencyWalkTest, EachQuestionIsAskedOfTheRulesOnce) {
    program({"liba.so.1", "libb.so.1"});
    library("/usr/lib/liba.so.1", {"libx.so.1", "libp.so.1"});
    library("/usr/lib/libb.so.1", {"libx.so.1", "libp.so.1"});
    library("/usr/lib/libx.so.1");
    library("/usr/lib/libp.so.1");
    root.file("app/plugins/notes.txt", "not a library\n");
    rules("exclude if $name == libx.so and $caller == $vantor/usr/lib/liba.so.1\n"
          "prune if $name == libp.so\n"
          "include $vantor/app/plugins if $dir == $vantor/app/bin\n");
    const Lines once = walk({"app/bin/app"}, nullptr, true);
    CountingRules counting(*ruleSet);
    const Lines twice = walk({"app/bin/app", "app/bin/app"}, &counting, true);
    ASSERT_EQ(once.size(), 7u);
    EXPECT_EQ(once[0], "start /app/bin/app kept + /app/plugins/notes.txt");
    EXPECT_EQ(once[6], "needed /usr/lib/libp.so.1 pruned (/usr/lib/liba.so.1) by <anonymous script>, line 2: \n"
                       "prune if $name == libp.so");
    ASSERT_EQ(twice.size(), 2 * once.size());
    EXPECT_EQ(Lines(twice.begin(), twice.begin() + once.size()), once);
    EXPECT_EQ(Lines(twice.begin() + once.size(), twice.end()), once);
    // the program, ld.so, liba, libb and notes.txt, then libx and libp through liba and through libb
    EXPECT_EQ(counting.asked.size(), 9u);
    for (const auto& [question, times] : counting.asked)
        EXPECT_EQ(times, 1) << question.first << " through " << question.second;
}

// Where no exclude or prune rule reads $caller, the caller changes no
// verdict: each file is asked about once, whatever leads to it, and told
// with the caller that led to it.
TEST_F(DependencyWalkTest, RulesThatDoNotReadTheCallerAreAskedOnceAFile) {
    program({"liba.so.1", "libb.so.1"});
    library("/usr/lib/liba.so.1", {"libx.so.1", "libp.so.1"});
    library("/usr/lib/libb.so.1", {"libx.so.1", "libp.so.1"});
    library("/usr/lib/libx.so.1");
    library("/usr/lib/libp.so.1");
    rules("exclude if $name == libx.so\nprune if $name == libp.so\n");
    for (bool precomputed : {false, true}) {
        if (precomputed)
            ruleSet->precompute();
        std::set<std::string> questions;
        const Lines lines = walk({"app/bin/app", "app/bin/app"}, nullptr, false, &questions);
        EXPECT_EQ(questions, (std::set<std::string>{
                                 "/app/bin/app (-)", "/lib64/ld.so (/app/bin/app)", "/usr/lib/liba.so.1 (/app/bin/app)",
                                 "/usr/lib/libb.so.1 (/app/bin/app)", "/usr/lib/libx.so.1 (/usr/lib/liba.so.1)",
                                 "/usr/lib/libp.so.1 (/usr/lib/liba.so.1)"}))
            << "precomputed: " << precomputed;
        ASSERT_EQ(lines.size(), 12u);
        EXPECT_EQ(lines[10], "needed /usr/lib/libx.so.1 excluded (/usr/lib/liba.so.1)");
    }
    // A verdict given again is told with the caller that led to the file
    // this time.
    ElfImage other = ElfImage::library({"libb.so.1"});
    other.type = ET_EXEC;
    other.interpreter = "/lib64/ld.so";
    root.file("app/bin/other", other.bytes());
    const Lines lines = walk({"app/bin/app", "app/bin/other"});
    ASSERT_EQ(lines.size(), 11u);
    EXPECT_EQ(lines[9], "needed /usr/lib/libx.so.1 excluded (/usr/lib/libb.so.1)");
    EXPECT_EQ(lines[10], "needed /usr/lib/libp.so.1 pruned (/usr/lib/libb.so.1)");
}

// A rule on $caller is asked through each caller, precomputed or not.
TEST_F(DependencyWalkTest, RulesThatReadTheCallerAreAskedForEachCaller) {
    program({"liba.so.1", "libb.so.1"});
    library("/usr/lib/liba.so.1", {"libx.so.1"});
    library("/usr/lib/libb.so.1", {"libx.so.1"});
    library("/usr/lib/libx.so.1");
    rules("exclude if $name == libx.so and $caller == $vantor/usr/lib/liba.so.1\n");
    for (bool precomputed : {false, true}) {
        if (precomputed)
            ruleSet->precompute();
        std::set<std::string> questions;
        const Lines lines = walk({"app/bin/app"}, nullptr, false, &questions);
        EXPECT_EQ(questions.count("/usr/lib/libx.so.1 (/usr/lib/libb.so.1)"), 1u) << "precomputed: " << precomputed;
        EXPECT_EQ(lines.back(), "needed /usr/lib/libx.so.1 kept (/usr/lib/libb.so.1)")
            << "precomputed: " << precomputed;
    }
}

// However the rules come to read $caller, through a name written otherwise,
// an `in` list or a configured value that names it, the walk asks the rules
// about a file for each of its callers.
TEST_F(DependencyWalkTest, ACallerReadInAnyWayIsAskedForEachCaller) {
    program({"liba.so.1", "libb.so.1"});
    library("/usr/lib/liba.so.1", {"libx.so.1"});
    library("/usr/lib/libb.so.1", {"libx.so.1"});
    library("/usr/lib/libx.so.1");
    const std::string liba = root.path() + "/usr/lib/liba.so.1";
    struct Way {
        const char* name;
        std::function<void()> setUp;
    };
    const std::vector<Way> ways = {
        {"a bound value with a braced name",
         [&] {
             rules("exclude if $name == libx.so and $who == $vantor/usr/lib/liba.so.1\n");
             ruleSet->bindVariable("who", "${ caller}");
         }},
        {"an in list", [&] { rules("exclude if $name == libx.so and $vantor/usr/lib/liba.so.1 in [$caller]\n"); }},
        {"a root that names the caller",
         [&] {
             rules("exclude if $name == libx.so and $vantor == $liba\n");
             ruleSet->bindVariable("liba", liba.c_str());
             ruleSet->setVantorRoot("$caller");
             valuesHoldVariables = true;
         }},
    };
    for (const Way& way : ways) {
        valuesHoldVariables = false;
        way.setUp();
        std::set<std::string> questions;
        const Lines lines = walk({"app/bin/app"}, nullptr, false, &questions);
        EXPECT_EQ(questions.count("/usr/lib/libx.so.1 (/usr/lib/liba.so.1)"), 1u) << way.name;
        EXPECT_EQ(questions.count("/usr/lib/libx.so.1 (/usr/lib/libb.so.1)"), 1u) << way.name;
        EXPECT_EQ(lines.back(), "needed /usr/lib/libx.so.1 kept (/usr/lib/libb.so.1)") << way.name;
    }
}

} // namespace
} // namespace qxqr
