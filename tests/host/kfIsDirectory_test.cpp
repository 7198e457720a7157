// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(kfIsDirectory, TellsDirectoriesFromFiles) {
    TempTree tree;
    EXPECT_TRUE(kfIsDirectory(tree.dir("sub").c_str()));
    EXPECT_TRUE(kfIsDirectory((tree.path("sub") + "/").c_str()));
    EXPECT_FALSE(kfIsDirectory(tree.file("sub/file.txt").c_str()));
    EXPECT_FALSE(kfIsDirectory(tree.path("missing").c_str()));
}

TEST(kfIsDirectory, FollowsSymbolicLinks) {
    TempTree tree;
    std::filesystem::create_directory_symlink(tree.dir("target"), tree.path("link"));
    EXPECT_TRUE(kfIsDirectory(tree.path("link").c_str()));
}

} // namespace
