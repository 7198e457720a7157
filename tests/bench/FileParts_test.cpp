// SPDX-License-Identifier: MIT
#include "FileParts.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace qxqr::bench;

namespace {

std::string described(const char* file) {
    FileParts parts = fileParts(file);
    return std::string(parts.dir) + "|" + std::string(parts.name) + "|" + std::string(parts.ext);
}

} // namespace

TEST(FileParts, DirectoryNameAndExtension) {
    EXPECT_EQ("/a/b|c.d|.e", described("/a/b/c.d.e"));
    EXPECT_EQ("|c|", described("c"));
    EXPECT_EQ("|c|.m", described("/c.m"));
}

TEST(FileParts, LeadingDotIsAName) {
    EXPECT_EQ("|.profile|", described(".profile"));
}

TEST(FileParts, DotInADirectoryIsNoExtension) {
    EXPECT_EQ("a.b|c|", described("a.b/c"));
}

TEST(FileParts, DotRightAfterTheSlashIsAnExtension) {
    EXPECT_EQ("x||.hidden", described("x/.hidden"));
}

TEST(FileParts, VariablesNameTheParts) {
    FileParts parts = fileParts("/p/q.c");
    EXPECT_EQ("/p/q.c", parts[FileVariable::file]);
    EXPECT_EQ("/p", parts[FileVariable::dir]);
    EXPECT_EQ("q", parts[FileVariable::name]);
    EXPECT_EQ(".c", parts[FileVariable::ext]);
}
