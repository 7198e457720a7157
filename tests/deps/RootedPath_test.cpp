// SPDX-License-Identifier: MIT
#include "RootedPath.hpp"

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace qxqr {
namespace {

namespace fs = std::filesystem;

// A system under a temporary root, and beside it a tree outside the root
// that a link must never reach.
class RootedPathTest : public testing::Test {
protected:
    void link(const std::string& systemPath, const std::string& target) {
        fs::create_directories(fs::path(root.path(systemPath.substr(1))).parent_path());
        fs::create_symlink(target, root.path(systemPath.substr(1)));
    }

    std::string followed(const std::string& systemPath) {
        error.clear();
        return followedInRoot(root.path(), systemPath, error);
    }

    TempTree root;
    TempTree outside;
    std::error_code error;
};

TEST_F(RootedPathTest, AnAbsoluteTargetIsTakenFromTheRoot) {
    outside.file("lib/libx.so.1", "outside");
    root.file(outside.path("lib/libx.so.1").substr(1), "inside");
    link("/usr/lib/libx.so.1", outside.path("lib/libx.so.1"));
    EXPECT_EQ(followed("/usr/lib/libx.so.1"), outside.path("lib/libx.so.1"));
    EXPECT_FALSE(error);
}

TEST_F(RootedPathTest, DotDotStopsAtTheRoot) {
    root.file("etc/libx.so.1", "inside");
    link("/usr/lib/libx.so.1", "../../../../../../../../../etc/libx.so.1");
    EXPECT_EQ(followed("/usr/lib/libx.so.1"), "/etc/libx.so.1");
    EXPECT_EQ(followed("/../../usr/../etc/./libx.so.1"), "/etc/libx.so.1");
}

TEST_F(RootedPathTest, LinksOnTheWayAreFollowedToo) {
    root.file("usr/lib/x86_64-linux-gnu/libx.so.1");
    link("/lib", "usr/lib");
    link("/usr/lib/x86_64-linux-gnu/libx.so", "/lib/x86_64-linux-gnu/libx.so.1");
    EXPECT_EQ(followed("/lib/x86_64-linux-gnu/libx.so"), "/usr/lib/x86_64-linux-gnu/libx.so.1");
}

TEST_F(RootedPathTest, WhatIsNotThereIsKeptAsWritten) {
    link("/lib", "/usr/lib");
    EXPECT_EQ(followed("/lib/gone/../libx.so.1"), "/usr/lib/gone/../libx.so.1");
    EXPECT_FALSE(error);
}

TEST_F(RootedPathTest, ALoopIsReportedAsTheKernelReportsIt) {
    link("/usr/lib/a", "b");
    link("/usr/lib/b", "/usr/lib/a");
    followed("/usr/lib/a");
    EXPECT_EQ(error, std::error_code(ELOOP, std::generic_category()));
}

TEST_F(RootedPathTest, ASystemPathIsAHostPathWithoutTheRoot) {
    EXPECT_EQ(systemPathUnder("/srv/root", "/srv/root/usr/lib"), "/usr/lib");
    EXPECT_EQ(systemPathUnder("/srv/root", "/srv/rootless/usr/lib"), std::nullopt);
    EXPECT_EQ(systemPathUnder("/srv/root", "/srv/root"), std::nullopt);
    EXPECT_EQ(systemPathUnder("", "/usr/lib"), "/usr/lib");
}

} // namespace
} // namespace qxqr
