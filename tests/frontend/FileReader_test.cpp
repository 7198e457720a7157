// SPDX-License-Identifier: MIT
#include "FrontendTesting.hpp"

#include "Deadline.hpp"
#include "PipeWriter.hpp"
#include "TempTree.hpp"
#include "rules/ParsedRules.hpp"

#include <qxqrscript/FileReader.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

using namespace FrontendTesting;
using QuorelScript::FileReader;
using QuorelScript::ParsedRules;
using QuorelScript::Rules;

TEST(FileReader, EmptyFileGivesARuleSetWithoutRules) {
    TempTree tree;
    FileReader reader;
    std::unique_ptr<Rules> rules(reader.read(tree.file("empty.qr").c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("", printed(*rules));
}

TEST(FileReader, ReadsAndParsesTheWholeFile) {
    TempTree tree;
    FileReader reader;
    std::unique_ptr<Rules> rules(reader.read(tree.file("r.qr", "exclude if a exists\n% c\nprune if b exists").c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if exists(a)\n\n\tprune if exists(b)\n\n", printed(*rules));
}

TEST(FileReader, MissingFileGivesNullSilentlyAndKeepsTheScriptName) {
    TempTree tree;
    FileReader reader;
    reader.getParser().setScriptName("before");
    EXPECT_EQ(nullptr, reader.read(tree.path("missing.qr").c_str()));
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    EXPECT_EQ("", errors.str());
    reader.getParser().parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("before", 1, "bad"), errors.str());
}

TEST(FileReader, MissingFileAddsNothingToARuleSet) {
    TempTree tree;
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    ParsedRules rules(nullptr, nullptr, nullptr);
    reader.read(&rules, tree.path("missing.qr").c_str());
    EXPECT_EQ("", printed(rules));
    EXPECT_EQ("", errors.str());
}

TEST(FileReader, DirectoryIsUnreadableLikeAMissingFile) {
    TempTree tree;
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    reader.getParser().setScriptName("before");
    EXPECT_EQ(nullptr, reader.read(tree.dir("d").c_str()));
    reader.getParser().parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("before", 1, "bad"), errors.str());
}

// The file's contents are freed also when the parse throws (here from the
// trace output); the sanitizer build checks that nothing leaks.
TEST(FileReader, ExceptionFromTheParsePassesThrough) {
    TempTree tree;
    std::string file = tree.file("r.qr", "exclude if a == b\n");
    FileReader reader;
    reader.getParser().setDebugVerbose(true);
    ThrowingStandardOutput throwing;
    EXPECT_THROW(reader.read(file.c_str()), std::ios_base::failure);
}

TEST(FileReader, CarriageReturnsAreKept) {
    TempTree tree;
    FileReader reader;
    std::string file = tree.file("crlf.qr", "exclude if a exists\r\nbad\r\n");
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    EXPECT_EQ(nullptr, reader.read(file.c_str()));
    EXPECT_EQ(syntaxErrorMessage(file, 2, "bad"), errors.str());
    std::unique_ptr<Rules> rules(
        reader.read(tree.file("good.qr", "exclude if true\r\n\r\nprune if false\r\n").c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if exists(a)\n\texclude if true\n\n\tprune if false\n\n", printed(*rules));
}

TEST(FileReader, ContinuedRuleKeepsItsCarriageReturnInItsName) {
    TempTree tree;
    FileReader reader;
    std::string file = tree.file("cont.qr", "exclude if true and ...\r\n true\r\n");
    std::unique_ptr<Rules> rules(reader.read(file.c_str()));
    ASSERT_NE(nullptr, rules);
    ASSERT_TRUE(rules->isExcluded("f", nullptr, "c"));
    EXPECT_EQ(file + ", line 2: \nexclude if true and ...\r\n true", rules->getLastMatchText());
}

TEST(FileReader, SyntaxErrorNamesTheFile) {
    TempTree tree;
    FileReader reader;
    std::string file = tree.file("bad.qr", "\n\nexclude if\n");
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    EXPECT_EQ(nullptr, reader.read(file.c_str()));
    EXPECT_EQ(syntaxErrorMessage(file, 3, "exclude if"), errors.str());
}

TEST(FileReader, ScriptNameStaysTheFileNameForLaterParses) {
    TempTree tree;
    FileReader reader;
    std::string file = tree.file("named.qr", "exclude if true\n");
    std::unique_ptr<Rules> rules(reader.read(file.c_str()));
    ASSERT_NE(nullptr, rules);
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    reader.getParser().parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage(file, 1, "bad"), errors.str());
}

TEST(FileReader, NamesRulesAfterTheFile) {
    TempTree tree;
    FileReader reader;
    std::string file = tree.file("n.qr", "\nexclude if true\n");
    std::unique_ptr<Rules> rules(reader.read(file.c_str()));
    ASSERT_NE(nullptr, rules);
    ASSERT_TRUE(rules->isExcluded("f", nullptr, "c"));
    EXPECT_EQ(file + ", line 2: \nexclude if true", rules->getLastMatchText());
}

TEST(FileReader, NulByteEndsTheScript) {
    TempTree tree;
    FileReader reader;
    std::string contents("exclude if true\n\0not a rule\n", 28);
    std::unique_ptr<Rules> rules(reader.read(tree.file("nul.qr", contents).c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if true\n\n", printed(*rules));
}

TEST(FileReader, AppendsToACallersRuleSet) {
    TempTree tree;
    FileReader reader;
    ParsedRules rules(new QuorelScript::ExcludeRuleList, nullptr, nullptr);
    reader.read(&rules, tree.file("a.qr", "exclude if a exists\n").c_str());
    reader.read(&rules, tree.file("b.qr", "exclude if b exists\n").c_str());
    EXPECT_EQ("\texclude if exists(a)\n\texclude if exists(b)\n\n", printed(rules));
}

TEST(FileReader, ConstAccessToTheParser) {
    FileReader reader;
    reader.getParser().setDebugVerbose(true);
    const FileReader& constReader = reader;
    EXPECT_TRUE(constReader.getParser().getDebugVerbose());
    EXPECT_EQ(&reader.getParser(), &constReader.getParser());
}

// A file whose size cannot be taken (as with most files under /proc) cannot
// be read whole: it is treated like a missing file.
TEST(FileReader, FileWithoutASizeIsUnreadable) {
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    reader.getParser().setScriptName("before");
    EXPECT_EQ(nullptr, reader.read("/proc/self/status"));
    reader.getParser().parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("before", 1, "bad"), errors.str());
}

namespace {

// Whatever the reason a file is not read, the reader says nothing, gives
// null or adds nothing, and leaves the script name as it was.
void expectNotRead(const char* file) {
    SCOPED_TRACE(file ? file : "null");
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    reader.getParser().setScriptName("before");
    EXPECT_EQ(nullptr, reader.read(file));
    ParsedRules rules(nullptr, nullptr, nullptr);
    reader.read(&rules, file);
    EXPECT_EQ("", printed(rules));
    reader.getParser().parse("bad\n");
    EXPECT_EQ(syntaxErrorMessage("before", 1, "bad"), errors.str());
}

} // namespace

TEST(FileReader, RefusedFilesGiveNullSilentlyAndKeepTheScriptName) {
    TempTree tree;
    const std::string fifo = tree.path("fifo");
    ASSERT_EQ(0, ::mkfifo(fifo.c_str(), 0600));
    const std::string large = tree.file("large.qr");
    ASSERT_EQ(0, ::truncate(large.c_str(), 3LL << 30));
    Deadline deadline(10);
    for (const std::string& file : {fifo, large, std::string("/dev/zero")})
        expectNotRead(file.c_str());
}

TEST(FileReader, NullFileNameGivesNullSilently) {
    expectNotRead(nullptr);
}

TEST(FileReader, NullRuleSetReadsNothing) {
    TempTree tree;
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    reader.getParser().setScriptName("before");
    reader.read(nullptr, tree.file("bad.qr", "bad\n").c_str());
    EXPECT_EQ("", errors.str());
    reader.getParser().parse("worse\n");
    EXPECT_EQ(syntaxErrorMessage("before", 1, "worse"), errors.str());
}

TEST(FileReader, ScriptOnAPipeIsNamedAfterItsPath) {
    PipeWriter pipe("exclude if true\n");
    FileReader reader;
    std::unique_ptr<Rules> rules(reader.read(pipe.path().c_str()));
    ASSERT_NE(nullptr, rules);
    ASSERT_TRUE(rules->isExcluded("f", nullptr, nullptr));
    EXPECT_EQ(pipe.path() + ", line 1: \nexclude if true", rules->getLastMatchText());
}

TEST(FileReader, LoneCarriageReturnEndsNoLine) {
    TempTree tree;
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    std::string file = tree.file("cr.qr", "exclude if a exists\rprune if b exists\r");
    EXPECT_EQ(nullptr, reader.read(file.c_str()));
    EXPECT_EQ(syntaxErrorMessage(file, 1, "exclude if a exists\rprune if b exists\r"), errors.str());
}

// Scripts are bytes, not characters: a byte that starts no UTF-8 character
// may stand in a comment, and in a path it is no path character.
TEST(FileReader, InvalidUtf8IsTakenByteForByte) {
    TempTree tree;
    FileReader reader;
    std::ostringstream errors;
    reader.getParser().setErrorSink(&errors);
    std::unique_ptr<Rules> rules(reader.read(tree.file("c.qr", "% \xff\xfe\x80\nexclude if a exists\n").c_str()));
    ASSERT_NE(nullptr, rules);
    EXPECT_EQ("\texclude if exists(a)\n\n", printed(*rules));
    std::string file = tree.file("p.qr", "exclude if \xff/a exists\n");
    EXPECT_EQ(nullptr, reader.read(file.c_str()));
    EXPECT_EQ(syntaxErrorMessage(file, 1, "exclude if \xff/a exists"), errors.str());
}
