// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "TempTree.hpp"

#include <gtest/gtest.h>

namespace {

TEST(kfFileOrDirExists, FilesAndDirectoriesExist) {
    TempTree tree;
    EXPECT_TRUE(kfFileOrDirExists(tree.file("a/file.txt").c_str()));
    EXPECT_TRUE(kfFileOrDirExists(tree.path("a").c_str()));
    EXPECT_TRUE(kfFileOrDirExists(tree.dir("empty").c_str()));
}

TEST(kfFileOrDirExists, MissingPathsDoNot) {
    TempTree tree;
    EXPECT_FALSE(kfFileOrDirExists(tree.path("missing").c_str()));
    EXPECT_FALSE(kfFileOrDirExists(tree.path("a/$x").c_str()));
    EXPECT_FALSE(kfFileOrDirExists(""));
}

} // namespace
