// SPDX-License-Identifier: MIT
// The fuzz targets' host services answer from their fake tree, whatever is on
// the disk, and they take the place of the library's own at link time.
#include <qxqrscript/host.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Reports = std::vector<std::string>;

class Recorder : public kfStringProcedure {
public:
    Recorder(Reports& reports, const char* kind) : reports_(reports), kind_(kind) {}

    bool operator()(const char* path) const override {
        reports_.push_back(kind_ + path);
        return true;
    }

private:
    Reports& reports_;
    std::string kind_;
};

Reports find(const char* pattern, int wholeDirectory) {
    Reports reports;
    kfFindMatchingFilesAndDirs(pattern, Recorder(reports, "file "), Recorder(reports, "dir "), wholeDirectory, false);
    return reports;
}

} // namespace

TEST(FakeHost, KnowsItsTreeAndNothingElse) {
    EXPECT_TRUE(kfFileOrDirExists("/vantor/lib/libcore.so"));
    EXPECT_TRUE(kfIsDirectory("/vantor/lib"));
    EXPECT_FALSE(kfIsDirectory("/vantor/lib/libcore.so"));
    // Present on any machine that runs this test, absent from the fake tree.
    EXPECT_FALSE(kfFileOrDirExists("/usr"));
    EXPECT_FALSE(kfIsDirectory("/usr"));
}

TEST(FakeHost, TrailingSlashesNameTheSameEntry) {
    EXPECT_TRUE(kfIsDirectory("/work/src//"));
    EXPECT_TRUE(kfFileOrDirExists("/"));
}

TEST(FakeHost, ListsADirectoryInByteOrder) {
    EXPECT_EQ((Reports{"dir /tmp", "dir /vantor", "dir /work"}), find("/", 1));
    EXPECT_EQ(
        (Reports{"file /work/.hidden", "dir /work/include", "dir /work/notes", "dir /work/plugins", "dir /work/src"}),
        find("/work/", 1));
    EXPECT_EQ((Reports{"file a/b.c"}), find("a", 1));
}

TEST(FakeHost, WildcardsStayWithinOneComponent) {
    EXPECT_EQ((Reports{"file /work/src/main.c", "file /work/src/util.c"}), find("/work/*/*.c", 0));
    EXPECT_EQ((Reports{"file /work/src/generated/table.c"}), find("/work/src/*/t?ble.c", 0));
    EXPECT_EQ((Reports{"dir /tmp", "dir /vantor", "dir /work"}), find("/*", 0));
}

TEST(FakeHost, AWildcardDoesNotMatchALeadingDot) {
    EXPECT_EQ((Reports{"dir /work/include", "dir /work/notes", "dir /work/plugins", "dir /work/src"}),
              find("/work/*", 0));
    EXPECT_EQ((Reports{"file /work/.hidden"}), find("/work/.h*", 0));
}

TEST(FakeHost, ManyStarsCostNoMoreThanOne) {
    EXPECT_EQ((Reports{"file /work/notes/release notes.txt"}), find("/work/notes/****************r*e*l*.txt", 0));
    EXPECT_EQ(Reports{}, find("/work/notes/*************************************************x", 0));
}
