// SPDX-License-Identifier: MIT
// Files that 32 bits cannot describe: a size beyond 4 GiB, a time after
// January 2038. Where long has 32 bits (i386), stat() and readdir() built
// without 64-bit offsets and times fail on them with EOVERFLOW, and such a
// file would seem not to exist, or a directory not to be one.
#include <qxqrscript/host.hpp>

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <string>
#include <vector>

namespace {

const off_t fiveGiB = off_t(5) << 30;
// 2100-01-01 00:00:00 UTC, in seconds since 1970.
const long long in2100 = 4102444800LL;

// Makes a file of `size` bytes that takes no room on disk; false when the
// file system refuses.
bool makeSparseFile(const std::string& path, off_t size) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0)
        return false;
    const bool sized = ftruncate(file, size) == 0;
    close(file);
    return sized;
}

// Dates `path` at `seconds`; false when the file system cannot keep that time.
bool setTime(const std::string& path, long long seconds) {
    timespec times[2] = {};
    times[0].tv_sec = times[1].tv_sec = static_cast<std::time_t>(seconds);
    struct stat status;
    return utimensat(AT_FDCWD, path.c_str(), times, 0) == 0 && stat(path.c_str(), &status) == 0 &&
           status.st_mtime == times[1].tv_sec;
}

class Recorder : public kfStringProcedure {
public:
    Recorder(std::vector<std::string>& reports, const std::string& kind) : reports_(reports), kind_(kind) {}
    bool operator()(const char* path) const override {
        reports_.push_back(kind_ + " " + path);
        return false;
    }

private:
    std::vector<std::string>& reports_;
    std::string kind_;
};

// Each test skips only for what it needs: a 32-bit time does not take away
// the test of the large file.
const char* const noBigFile = "the temporary file system refuses a file of 5 GiB";
const char* const noLateDirectory = "a 32-bit time, or a temporary file system that cannot date a file in 2100";

class LargeFilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        bigMade = makeSparseFile(big, fiveGiB);
        lateDated = sizeof(std::time_t) >= 8 && setTime(late, in2100);
    }

    std::vector<std::string> find(const std::string& pattern, int wholeDirectory) {
        std::vector<std::string> reports;
        kfFindMatchingFilesAndDirs(pattern.c_str(), Recorder(reports, "file"), Recorder(reports, "dir"), wholeDirectory,
                                   false);
        return reports;
    }

    TempTree tree;
    const std::string big = tree.path("big.bin");
    const std::string late = tree.dir("late");
    bool bigMade = false;
    bool lateDated = false;
};

TEST_F(LargeFilesTest, AFileBeyond4GiBExists) {
    if (!bigMade)
        GTEST_SKIP() << noBigFile;
    EXPECT_TRUE(kfFileOrDirExists(big.c_str()));
    EXPECT_FALSE(kfIsDirectory(big.c_str()));
}

TEST_F(LargeFilesTest, ADirectoryDatedAfter2038IsADirectory) {
    if (!lateDated)
        GTEST_SKIP() << noLateDirectory;
    EXPECT_TRUE(kfFileOrDirExists(late.c_str()));
    EXPECT_TRUE(kfIsDirectory(late.c_str()));
}

// The directory is one whatever its date, so only the large file is needed;
// where it could be dated in 2100, the directory is the late one as well.
TEST_F(LargeFilesTest, EnumerationTellsTheirKinds) {
    if (!bigMade)
        GTEST_SKIP() << noBigFile;
    const std::vector<std::string> expected{"file " + big, "dir " + late};
    EXPECT_EQ(expected, find(tree.path(), 1));
    EXPECT_EQ(expected, find(tree.path("*"), 0));
}

} // namespace
