// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Reports = std::vector<std::string>;

// Records each path it receives, below the tree's root, with its kind. It
// answers false, which must not stop the enumeration.
class Recorder : public kfStringProcedure {
public:
    Recorder(Reports& reports, const std::string& kind, const std::string& root)
        : reports_(reports), kind_(kind), root_(root) {}

    bool operator()(const char* path) const override {
        const std::string text = path;
        const bool below = text.compare(0, root_.length(), root_) == 0;
        reports_.push_back(kind_ + " " + (below ? text.substr(root_.length()) : text));
        return false;
    }

private:
    Reports& reports_;
    std::string kind_;
    std::string root_;
};

class kfFindMatchingFilesAndDirsTest : public ::testing::Test {
protected:
    kfFindMatchingFilesAndDirsTest() {
        for (const char* file : {"b.txt", "a.c", ".hidden", "br[1]", "sub/x.c", "sub/y.h", "sub/.dot.c", "sub2/x.c"})
            tree.file(file);
        tree.dir("zdir");
    }

    // What the enumeration of `pattern` (below the tree's root) reports.
    Reports find(const std::string& pattern, int wholeDirectory) {
        Reports reports;
        const std::string root = tree.path();
        kfFindMatchingFilesAndDirs((root + pattern).c_str(), Recorder(reports, "file", root),
                                   Recorder(reports, "dir", root), wholeDirectory, false);
        return reports;
    }

    TempTree tree;
};

TEST_F(kfFindMatchingFilesAndDirsTest, ListsADirectoryInByteOrder) {
    EXPECT_EQ(
        (Reports{"file /.hidden", "file /a.c", "file /b.txt", "file /br[1]", "dir /sub", "dir /sub2", "dir /zdir"}),
        find("", 1));
}

TEST_F(kfFindMatchingFilesAndDirsTest, ListingDoesNotDoubleATrailingSlash) {
    EXPECT_EQ((Reports{"file /sub/.dot.c", "file /sub/x.c", "file /sub/y.h"}), find("/sub/", 1));
    EXPECT_EQ((Reports{"file /sub/.dot.c", "file /sub/x.c", "file /sub/y.h"}), find("/sub", 1));
}

TEST_F(kfFindMatchingFilesAndDirsTest, ListingAnEmptyDirectoryAFileOrNothingReportsNothing) {
    EXPECT_EQ(Reports{}, find("/zdir", 1));
    EXPECT_EQ(Reports{}, find("/a.c", 1));
    EXPECT_EQ(Reports{}, find("/missing", 1));
}

TEST_F(kfFindMatchingFilesAndDirsTest, StarMatchesFilesAndDirectoriesButNoLeadingDot) {
    EXPECT_EQ((Reports{"file /a.c", "file /b.txt", "file /br[1]", "dir /sub", "dir /sub2", "dir /zdir"}),
              find("/*", 0));
}

TEST_F(kfFindMatchingFilesAndDirsTest, WildcardsInSeveralComponents) {
    EXPECT_EQ((Reports{"file /sub/x.c", "file /sub2/x.c"}), find("/sub*/*.c", 0));
    EXPECT_EQ((Reports{"file /sub/x.c", "file /sub/y.h"}), find("/s?b/?.?", 0));
    EXPECT_EQ((Reports{"file /sub/x.c", "file /sub2/x.c"}), find("/*/x.?", 0));
}

TEST_F(kfFindMatchingFilesAndDirsTest, NeverReportsDotOrDotDot) {
    EXPECT_EQ(Reports{"file /.hidden"}, find("/.*", 0));
    EXPECT_EQ(Reports{"file /sub/.dot.c"}, find("/sub/.*", 0));
    EXPECT_EQ(Reports{}, find("/.", 0));
    EXPECT_EQ(Reports{}, find("/sub/..", 0));
}

TEST_F(kfFindMatchingFilesAndDirsTest, OnlyStarAndQuestionMarkAreWildcards) {
    EXPECT_EQ(Reports{"file /br[1]"}, find("/br[1]", 0));
    EXPECT_EQ(Reports{"file /br[1]"}, find("/b?[1]", 0));
    EXPECT_EQ(Reports{}, find("/b[r][1]", 0));
}

TEST_F(kfFindMatchingFilesAndDirsTest, PatternWithoutWildcardsReportsWhatExists) {
    EXPECT_EQ(Reports{"file /a.c"}, find("/a.c", 0));
    EXPECT_EQ(Reports{"dir /sub"}, find("/sub", 0));
    EXPECT_EQ(Reports{}, find("/missing.c", 0));
}

TEST_F(kfFindMatchingFilesAndDirsTest, PatternThatMatchesNothingReportsNothing) {
    EXPECT_EQ(Reports{}, find("/*.none", 0));
    EXPECT_EQ(Reports{}, find("/missing/*", 0));
}

// The names "d/d/.../d/f" of a file `depth` names down, the file among them.
std::string deepFile(int depth) {
    std::string path;
    for (int level = 1; level < depth; ++level)
        path += "d/";
    return path + "f";
}

// The matcher of the C library takes stack for every name from the first
// that holds a wildcard on; up to 40 such names match as usual, and a
// deeper pattern matches nothing, even where a file would fit it.
TEST(kfFindMatchingFilesAndDirs, PatternDeeperThan40NamesFromItsFirstWildcardMatchesNothing) {
    TempTree tree;
    tree.file("deep/" + deepFile(41));
    Reports reports;
    const std::string root = tree.path();
    auto find = [&](const std::string& pattern) {
        reports.clear();
        kfFindMatchingFilesAndDirs((root + pattern).c_str(), Recorder(reports, "file", root),
                                   Recorder(reports, "dir", root), 0, false);
        return reports;
    };
    const Reports theFile{"file /deep/" + deepFile(41)};
    EXPECT_EQ(theFile, find("/deep/d/?/" + deepFile(39)));
    EXPECT_EQ(Reports{}, find("/deep/?/" + deepFile(40)));
    EXPECT_EQ(Reports{}, find("/de*/" + deepFile(41)));
    EXPECT_EQ(theFile, find("/deep/" + deepFile(41)));
}

} // namespace
