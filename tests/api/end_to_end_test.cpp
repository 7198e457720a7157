// SPDX-License-Identifier: MIT
// A host's view: a script in, a rule set out, queries about the files of a
// real directory tree answered.
#include "RecordingIncluder.hpp"
#include "TempTree.hpp"

#include <qxqrscript.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

using QuorelScript::FileReader;
using QuorelScript::Parser;
using QuorelScript::Rules;

namespace {

const char* const script = "% rules for the test tree\n"
                           "exclude if $file in [$toolbox/local]\n"
                           "exclude if $ext == .o or $file == $generated\n"
                           "prune if $dir == $cwd/stop ... % only there\n"
                           "      and not $name == keep\n"
                           "include [$dir/$name.h, $vantor/extra] if $ext == .c\n"
                           "include $vantor/pat/*.txt unless $name != main\n";

class EndToEnd : public ::testing::Test {
protected:
    void SetUp() override {
        tree.file("toolbox/local/x.c");
        tree.file("src/a.c");
        tree.file("src/a.h");
        tree.file("extra/e2.h");
        tree.file("extra/e1.h");
        tree.file("pat/x.txt");
        tree.file("pat/y.txt");
        tree.file("pat/z.dat");
        tree.dir("stop");
        parser.setErrorSink(&errors);
        rules.reset(parser.parse(script));
        ASSERT_NE(nullptr, rules) << errors.str();
        rules->setVantorRoot(tree.path().c_str());
        rules->setCwd(tree.path().c_str());
        rules->bindVariable("generated", tree.path("src/gen.c").c_str());
    }

    std::vector<std::string> includesOf(const std::string& file) {
        RecordingIncluder collector;
        rules->getIncludes(file.c_str(), nullptr, collector);
        return collector.paths;
    }

    TempTree tree;
    std::ostringstream errors;
    Parser parser;
    std::unique_ptr<Rules> rules;
};

} // namespace

TEST_F(EndToEnd, PrintedRuleSet) {
    std::ostringstream out;
    out << rules.get();
    EXPECT_EQ("\texclude if in($file,[$toolbox/local])\n"
              "\texclude if or(equals($ext,.o),equals($file," +
                  tree.path("src/gen.c") +
                  "))\n"
                  "\n"
                  "\tprune if and(equals($dir,$cwd/stop),not(equals($name,keep)))\n"
                  "\n"
                  "\tinclude [$dir/$name.h,$vantor/extra] if equals($ext,.c)\n"
                  "\tinclude [$vantor/pat/*.txt] if not(not(equals($name,main)))\n"
                  "\n",
              out.str());
}

TEST_F(EndToEnd, ExcludeQueriesAndTheirMatchTexts) {
    EXPECT_TRUE(rules->isExcluded(tree.path("toolbox/local/x.c").c_str(), nullptr, tree.path("src/a.c").c_str()));
    EXPECT_EQ("<anonymous script>, line 2: \nexclude if $file in [$toolbox/local]", rules->getLastMatchText());
    EXPECT_TRUE(rules->isExcluded(tree.path("src/a.o").c_str(), nullptr, nullptr));
    EXPECT_EQ("<anonymous script>, line 3: \nexclude if $ext == .o or $file == $generated", rules->getLastMatchText());
    EXPECT_TRUE(rules->isExcluded(tree.path("src/gen.c").c_str(), nullptr, nullptr));
    EXPECT_FALSE(rules->isExcluded(tree.path("src/a.c").c_str(), nullptr, nullptr));
    EXPECT_EQ("<anonymous script>, line 3: \nexclude if $ext == .o or $file == $generated", rules->getLastMatchText());
}

TEST_F(EndToEnd, PruneQueryOfAContinuedRule) {
    EXPECT_TRUE(rules->isPruned(tree.path("stop/q.c").c_str(), nullptr, nullptr));
    EXPECT_EQ("<anonymous script>, line 5: \nprune if $dir == $cwd/stop ... % only there\n      and not $name == keep",
              rules->getLastMatchText());
    EXPECT_FALSE(rules->isPruned(tree.path("stop/keep.c").c_str(), nullptr, nullptr));
    EXPECT_FALSE(rules->isPruned(tree.path("src/q.c").c_str(), nullptr, nullptr));
}

TEST_F(EndToEnd, IncludesOfASourceFile) {
    EXPECT_EQ((std::vector<std::string>{tree.path("src/a.h"), tree.path("extra/e1.h"), tree.path("extra/e2.h")}),
              includesOf(tree.path("src/a.c")));
}

TEST_F(EndToEnd, IncludesByPattern) {
    EXPECT_EQ((std::vector<std::string>{tree.path("src/main.h"), tree.path("extra/e1.h"), tree.path("extra/e2.h"),
                                        tree.path("pat/x.txt"), tree.path("pat/y.txt")}),
              includesOf(tree.path("src/main.c")));
    EXPECT_EQ((std::vector<std::string>{tree.path("pat/x.txt"), tree.path("pat/y.txt")}),
              includesOf(tree.path("src/main.h")));
    EXPECT_EQ(std::vector<std::string>(), includesOf(tree.path("src/other.h")));
}

TEST_F(EndToEnd, AnswersStayTheSameAfterPrecomputation) {
    rules->precompute();
    EXPECT_TRUE(rules->isExcluded(tree.path("toolbox/local/x.c").c_str(), nullptr, nullptr));
    EXPECT_TRUE(rules->isExcluded(tree.path("src/gen.c").c_str(), nullptr, nullptr));
    EXPECT_FALSE(rules->isExcluded(tree.path("src/a.c").c_str(), nullptr, nullptr));
    EXPECT_TRUE(rules->isPruned(tree.path("stop/q.c").c_str(), nullptr, nullptr));
    EXPECT_FALSE(rules->isPruned(tree.path("stop/keep.c").c_str(), nullptr, nullptr));
}

TEST(EndToEndFile, ScriptFromAFile) {
    TempTree tree;
    tree.file("lib/x.so");
    std::string file = tree.file("rules.qr", "\r\nexclude if $ext == $lib\r\n");
    FileReader reader;
    std::unique_ptr<Rules> rules(reader.read(file.c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_TRUE(rules->isExcluded(tree.path("lib/x.so").c_str(), nullptr, nullptr));
    EXPECT_EQ(file + ", line 2: \nexclude if $ext == $lib", rules->getLastMatchText());
    EXPECT_FALSE(rules->isExcluded(tree.path("rules.qr").c_str(), nullptr, nullptr));
}

TEST(EndToEndFile, SyntaxErrorInAFile) {
    TempTree tree;
    std::string file = tree.file("bad.qr", "exclude if true\nexclude when false\n");
    FileReader reader;
    EXPECT_EQ(nullptr, reader.read(file.c_str()));
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    EXPECT_EQ("Syntax error in quorel rules script (" + file + ") at line 2:\nexclude when false\n\n", errors.str());
}

TEST(EndToEndFile, ExistenceTestsAskTheFileSystem) {
    TempTree tree;
    tree.file("flag");
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse("exclude if $vantor/flag exists\n"));
    ASSERT_NE(nullptr, rules);
    rules->setVantorRoot(tree.path().c_str());
    EXPECT_TRUE(rules->isExcluded("anything", nullptr, nullptr));
    std::filesystem::remove(tree.path("flag"));
    EXPECT_FALSE(rules->isExcluded("anything", nullptr, nullptr));
}
