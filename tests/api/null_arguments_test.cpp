// SPDX-License-Identifier: MIT
// Every public function that takes a pointer, given null in each pointer
// argument: a text is then the empty text, a rule set or a buffer that is
// missing makes the call do nothing, and no exception leaves the library.
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

const char* const script = "exclude if $file == $caller\n"
                           "prune if $vantor/a exists or $cwd/b exists or $name == $value\n"
                           "include $dir/x.h if true\n";

std::unique_ptr<Rules> parsed(const char* text) {
    Parser parser;
    return std::unique_ptr<Rules>(parser.parse(text));
}

std::string printed(const Rules* rules) {
    std::ostringstream out;
    out << rules;
    return out.str();
}

class Collector : public QuorelRules::Includer {
public:
    bool include(const char* path) override {
        paths.push_back(path);
        return true;
    }
    std::vector<std::string> paths;
};

class Recorder : public kfStringProcedure {
public:
    bool operator()(const char* path) const override {
        paths.push_back(path);
        return true;
    }
    mutable std::vector<std::string> paths;
};

// A rule set after `configure` and precompute, printed: what the
// configuration did to the conditions.
template <class Configure>
std::string configuredAndPrecomputed(Configure configure) {
    std::unique_ptr<Rules> rules = parsed(script);
    configure(*rules);
    rules->precompute();
    return printed(rules.get());
}

} // namespace

TEST(NullArguments, ParseOfNullTextIsParseOfEmptyText) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    std::unique_ptr<Rules> rules;
    ASSERT_NO_THROW(rules.reset(parser.parse(nullptr)));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("", printed(rules.get()));
    ASSERT_NO_THROW(rules.reset(parser.parse(nullptr, true)));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("", printed(rules.get()));
    EXPECT_FALSE(parser.getDebugVerbose());
    EXPECT_EQ("", errors.str());
}

TEST(NullArguments, ParseOfNullTextIntoARuleSetAddsNothing) {
    Parser parser;
    std::unique_ptr<Rules> rules = parsed("exclude if true\n");
    ASSERT_NO_THROW(parser.parse(rules.get(), nullptr));
    ASSERT_NO_THROW(parser.parse(rules.get(), nullptr, true));
    EXPECT_EQ("\texclude if true\n\n", printed(rules.get()));
}

// Rules kept from a failed parse are handed over by the next good one,
// and an empty text is a good one.
TEST(NullArguments, NullTextHandsOverTheRulesOfAFailedParse) {
    Parser parser;
    parser.parse("exclude if true\nbad\n");
    std::unique_ptr<Rules> rules(parser.parse(nullptr));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if true\n\n", printed(rules.get()));
}

TEST(NullArguments, ParseIntoNullRuleSetDoesNothing) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    ASSERT_NO_THROW(parser.parse(nullptr, "exclude if true\nbad\n"));
    ASSERT_NO_THROW(parser.parse(nullptr, "exclude if true\n", true));
    ASSERT_NO_THROW(parser.parse(nullptr, nullptr));
    ASSERT_NO_THROW(parser.parse(nullptr, nullptr, false));
    EXPECT_EQ("", errors.str());
    // Nothing was collected either: a later parse hands over its own rules only.
    std::unique_ptr<Rules> rules(parser.parse("prune if true\n"));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\tprune if true\n\n", printed(rules.get()));
}

TEST(NullArguments, NullScriptNameIsTheEmptyName) {
    Parser parser;
    std::ostringstream errors;
    parser.setErrorSink(&errors);
    ASSERT_NO_THROW(parser.setScriptName(nullptr));
    parser.parse("bad\n");
    EXPECT_EQ("Syntax error in quorel rules script () at line 1:\nbad\n\n", errors.str());
}

TEST(NullArguments, FileReaderWithNullFileOrRuleSetReadsNothing) {
    TempTree tree;
    const std::string file = tree.file("r.qr", "exclude if true\n");
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    std::unique_ptr<Rules> rules = parsed("");
    ASSERT_NO_THROW(EXPECT_EQ(nullptr, reader.read(nullptr)));
    ASSERT_NO_THROW(reader.read(rules.get(), nullptr));
    ASSERT_NO_THROW(reader.read(nullptr, file.c_str()));
    ASSERT_NO_THROW(reader.read(nullptr, nullptr));
    EXPECT_EQ("", printed(rules.get()));
    EXPECT_EQ("", errors.str());
}

TEST(NullArguments, QueriesTakeNullAsTheEmptyPath) {
    std::unique_ptr<Rules> rules = parsed(script);
    ASSERT_NO_THROW(EXPECT_TRUE(rules->isExcluded(nullptr, nullptr, nullptr)));
    EXPECT_TRUE(rules->isExcluded("", nullptr, nullptr));
    EXPECT_TRUE(rules->isExcluded(nullptr, nullptr, ""));
    EXPECT_FALSE(rules->isExcluded(nullptr, nullptr, "a"));
    EXPECT_FALSE(rules->isExcluded("a", nullptr, nullptr));
    ASSERT_NO_THROW(rules->isPruned(nullptr, nullptr, nullptr));
    Collector withNull, withEmpty;
    ASSERT_NO_THROW(rules->getIncludes(nullptr, nullptr, withNull));
    rules->getIncludes("", nullptr, withEmpty);
    EXPECT_EQ(withEmpty.paths, withNull.paths);
    EXPECT_EQ(1u, withNull.paths.size());
}

TEST(NullArguments, NullRootAndDirectoryAreTheEmptyOnes) {
    const std::string withEmpty = configuredAndPrecomputed([](Rules& rules) {
        rules.setVantorRoot("");
        rules.setCwd("");
    });
    const std::string withNull = configuredAndPrecomputed([](Rules& rules) {
        ASSERT_NO_THROW(rules.setVantorRoot(nullptr));
        ASSERT_NO_THROW(rules.setCwd(nullptr));
    });
    EXPECT_EQ(withEmpty, withNull);
    EXPECT_NE(configuredAndPrecomputed([](Rules&) {}), withNull);
}

TEST(NullArguments, BindVariableIgnoresNull) {
    const std::string unbound = configuredAndPrecomputed([](Rules&) {});
    EXPECT_EQ(unbound, configuredAndPrecomputed([](Rules& rules) {
                  ASSERT_NO_THROW(rules.bindVariable(nullptr, "x"));
                  ASSERT_NO_THROW(rules.bindVariable("value", nullptr));
                  ASSERT_NO_THROW(rules.bindVariable(nullptr, nullptr));
              }));
}

TEST(NullArguments, NullRuleSetPrintsNothing) {
    std::ostringstream out;
    ASSERT_NO_THROW(out << static_cast<const Rules*>(nullptr));
    EXPECT_EQ("", out.str());
}

TEST(NullArguments, HostServicesTakeNullAsTheEmptyPath) {
    EXPECT_FALSE(kfFileOrDirExists(nullptr));
    EXPECT_FALSE(kfIsDirectory(nullptr));
    Recorder files, directories;
    ASSERT_NO_THROW(kfFindMatchingFilesAndDirs(nullptr, files, directories, 0, false));
    ASSERT_NO_THROW(kfFindMatchingFilesAndDirs(nullptr, files, directories, 1, false));
    EXPECT_TRUE(files.paths.empty());
    EXPECT_TRUE(directories.paths.empty());
    EXPECT_FALSE(kfIgnoreString()(nullptr));
}

TEST(NullArguments, GetcwdWithoutABufferGivesNull) {
    EXPECT_EQ(nullptr, hbGetcwd(nullptr, 4096));
    EXPECT_EQ(nullptr, hbGetcwd(nullptr, 0));
}

TEST(NullArguments, SubstringSearchWithNullHaystackOrNeedle) {
    char haystack[] = "a/b";
    EXPECT_EQ(haystack, hbMultiByteStrStr(haystack, nullptr));
    EXPECT_EQ(nullptr, hbMultiByteStrStr(nullptr, "a"));
    EXPECT_EQ(nullptr, hbMultiByteStrStr(nullptr, nullptr));
}
