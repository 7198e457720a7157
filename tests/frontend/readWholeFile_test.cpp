// SPDX-License-Identifier: MIT
// Which files a script is read from, and how: regular files and pipes, whole
// and bytes as they are, up to the size limit; everything else refused at
// once, never waited for.
#include "frontend/readWholeFile.hpp"

#include "Deadline.hpp"
#include "PipeWriter.hpp"
#include "TempTree.hpp"

#include <qxqrscript/FileReader.hpp>

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using QuorelScript::FileReader;
using QuorelScript::readWholeFile;

namespace {

const unsigned secondsBeforeAHangFails = 10;

// A file of `size` bytes that takes no room on disk: it reads as NULs.
std::string sparseFile(const TempTree& tree, const std::string& name, off_t size) {
    std::string file = tree.file(name);
    if (::truncate(file.c_str(), size) != 0)
        ADD_FAILURE() << "cannot make " << file << " " << size << " bytes long";
    return file;
}

std::string fifo(const TempTree& tree, const std::string& name) {
    std::string file = tree.path(name);
    if (::mkfifo(file.c_str(), 0600) != 0)
        ADD_FAILURE() << "cannot make the FIFO " << file;
    return file;
}

} // namespace

TEST(readWholeFile, RegularFileIsReadByteForByte) {
    TempTree tree;
    const std::string contents("exclude if a\r\nb\rc\0d\xff\xfe\x80 e\n", 24);
    std::string text;
    ASSERT_TRUE(readWholeFile(tree.file("r.qr", contents).c_str(), text));
    EXPECT_EQ(contents, text);
}

TEST(readWholeFile, EmptyFileGivesEmptyText) {
    TempTree tree;
    std::string text;
    ASSERT_TRUE(readWholeFile(tree.file("empty.qr").c_str(), text));
    EXPECT_EQ("", text);
}

TEST(readWholeFile, NullNameAndMissingFileAreRefused) {
    TempTree tree;
    std::string text;
    EXPECT_FALSE(readWholeFile(nullptr, text));
    EXPECT_FALSE(readWholeFile("", text));
    EXPECT_FALSE(readWholeFile(tree.path("missing.qr").c_str(), text));
    EXPECT_FALSE(readWholeFile(tree.path("missing/below.qr").c_str(), text));
}

TEST(readWholeFile, DirectoryIsRefused) {
    TempTree tree;
    std::string text;
    EXPECT_FALSE(readWholeFile(tree.dir("d").c_str(), text));
}

// A process that may read any file (root's) cannot find out what a file
// without read permission does; a child that has given up its user for the
// unprivileged "nobody" can. Gives what `refused` says of `file` where it
// is read without that privilege: true, false, or "cannot tell".
std::optional<bool> askedWithoutReadPrivilege(const std::string& file, bool (*refused)(const std::string&)) {
    const int probe = ::open(file.c_str(), O_RDONLY);
    if (probe < 0)
        return refused(file);
    ::close(probe);
    const pid_t child = ::fork();
    if (child == 0) {
        const gid_t nobodyGroup = 65534;
        const uid_t nobody = 65534;
        if (::setgroups(0, nullptr) != 0 || ::setgid(nobodyGroup) != 0 || ::setuid(nobody) != 0)
            ::_exit(2);
        if (::open(file.c_str(), O_RDONLY) >= 0 || errno != EACCES)
            ::_exit(2);
        ::_exit(refused(file) ? 0 : 1);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) == 2)
        return std::nullopt;
    return WEXITSTATUS(status) == 0;
}

TEST(readWholeFile, FileWithoutReadPermissionIsRefused) {
    TempTree tree;
    ASSERT_EQ(0, ::chmod(tree.path().c_str(), 0755));
    const std::string file = tree.file("secret.qr", "exclude if true\n");
    ASSERT_EQ(0, ::chmod(file.c_str(), 0));
    const std::optional<bool> refused = askedWithoutReadPrivilege(file, [](const std::string& path) {
        std::string text;
        return !readWholeFile(path.c_str(), text) && text.empty();
    });
    if (!refused)
        GTEST_SKIP() << "this process may read any file, and cannot give that up to make a file unreadable";
    EXPECT_TRUE(*refused);
}

TEST(readWholeFile, FifoWithoutAWriterIsRefusedWithoutWaiting) {
    TempTree tree;
    const std::string file = fifo(tree, "fifo");
    Deadline deadline(secondsBeforeAHangFails);
    std::string text;
    EXPECT_FALSE(readWholeFile(file.c_str(), text));
}

// Whether a writer has come yet is a race the result must not depend on.
TEST(readWholeFile, FifoWithAWriterIsRefusedToo) {
    TempTree tree;
    const std::string file = fifo(tree, "fifo");
    Deadline deadline(secondsBeforeAHangFails);
    const int writer = ::open(file.c_str(), O_RDWR);
    ASSERT_LE(0, writer);
    ASSERT_EQ(16, ::write(writer, "exclude if true\n", 16));
    std::string text;
    EXPECT_FALSE(readWholeFile(file.c_str(), text));
    ::close(writer);
}

TEST(readWholeFile, DevicesAreRefusedWithoutReading) {
    Deadline deadline(secondsBeforeAHangFails);
    std::string text;
    EXPECT_FALSE(readWholeFile("/dev/zero", text));
    EXPECT_FALSE(readWholeFile("/dev/null", text));
    EXPECT_EQ("", text);
}

TEST(readWholeFile, FileThatCannotTellItsSizeIsRefused) {
    std::string text;
    EXPECT_FALSE(readWholeFile("/proc/self/status", text));
}

// /proc/self/cmdline says that it is empty, and holds the arguments of this
// process, each ended by a NUL.
TEST(readWholeFile, FileThatSaysItIsEmptyIsReadToItsEnd) {
    std::ifstream direct("/proc/self/cmdline", std::ios::binary);
    const std::string expected((std::istreambuf_iterator<char>(direct)), std::istreambuf_iterator<char>());
    ASSERT_FALSE(expected.empty());
    std::string text;
    ASSERT_TRUE(readWholeFile("/proc/self/cmdline", text));
    EXPECT_EQ(expected, text);
}

TEST(readWholeFile, PipeIsReadToItsEnd) {
    // Larger than what a pipe holds, so the reader has to wait for the writer.
    const std::string line = "exclude if a/b exists\n";
    PipeWriter pipe(line, 300 * line.size());
    std::string text;
    ASSERT_TRUE(readWholeFile(pipe.path().c_str(), text));
    std::string expected;
    for (int i = 0; i < 300; ++i)
        expected += line;
    EXPECT_EQ(expected, text);
}

TEST(readWholeFile, PipeKeepsItsBytesAsTheyAre) {
    const std::string contents("a\r\nb\0c\xff", 8);
    PipeWriter pipe(contents);
    std::string text;
    ASSERT_TRUE(readWholeFile(pipe.path().c_str(), text));
    EXPECT_EQ(contents, text);
}

TEST(readWholeFile, PipeWhoseWriterGaveNothingIsEmpty) {
    PipeWriter pipe("");
    std::string text;
    ASSERT_TRUE(readWholeFile(pipe.path().c_str(), text));
    EXPECT_EQ("", text);
}

TEST(readWholeFile, RegularFileUpToTheLimitIsRead) {
    TempTree tree;
    std::string text;
    ASSERT_TRUE(readWholeFile(sparseFile(tree, "limit.qr", FileReader::maxFileSize).c_str(), text));
    EXPECT_EQ(FileReader::maxFileSize, text.size());
    EXPECT_EQ(std::string::npos, text.find_first_not_of('\0'));
}

TEST(readWholeFile, RegularFileBeyondTheLimitIsRefused) {
    TempTree tree;
    std::string text;
    EXPECT_FALSE(readWholeFile(sparseFile(tree, "over.qr", FileReader::maxFileSize + 1).c_str(), text));
    EXPECT_FALSE(readWholeFile(sparseFile(tree, "3GB.qr", 3LL << 30).c_str(), text));
}

TEST(readWholeFile, PipeUpToTheLimitIsRead) {
    PipeWriter pipe("x", FileReader::maxFileSize);
    std::string text;
    ASSERT_TRUE(readWholeFile(pipe.path().c_str(), text));
    EXPECT_EQ(FileReader::maxFileSize, text.size());
}

TEST(readWholeFile, PipeBeyondTheLimitIsRefused) {
    PipeWriter pipe("x", FileReader::maxFileSize + 1);
    std::string text;
    EXPECT_FALSE(readWholeFile(pipe.path().c_str(), text));
}

TEST(readWholeFile, EndlessPipeIsRefusedAtTheLimit) {
    PipeWriter pipe("y\n", static_cast<std::size_t>(-1));
    std::string text;
    EXPECT_FALSE(readWholeFile(pipe.path().c_str(), text));
}
