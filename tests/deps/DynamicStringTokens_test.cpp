// SPDX-License-Identifier: MIT
#include "DynamicStringTokens.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace qxqr {
namespace {

const DynamicStringTokens tokens{"/opt/app/bin", "lib/x86_64-linux-gnu", "x86_64"};

TEST(DynamicStringTokens, ExpandsEachTokenInBothSpellings) {
    EXPECT_EQ(tokens.expand("$ORIGIN/../lib"), "/opt/app/bin/../lib");
    EXPECT_EQ(tokens.expand("${ORIGIN}/../lib"), "/opt/app/bin/../lib");
    EXPECT_EQ(tokens.expand("/usr/$LIB/app"), "/usr/lib/x86_64-linux-gnu/app");
    EXPECT_EQ(tokens.expand("/usr/${LIB}/app"), "/usr/lib/x86_64-linux-gnu/app");
    EXPECT_EQ(tokens.expand("/opt/$PLATFORM"), "/opt/x86_64");
    EXPECT_EQ(tokens.expand("${PLATFORM}x"), "x86_64x");
    EXPECT_EQ(tokens.expand("$ORIGIN:$ORIGIN"), "/opt/app/bin:/opt/app/bin");
}

TEST(DynamicStringTokens, LeavesOtherDollarsAsWritten) {
    EXPECT_EQ(tokens.expand("$ORIGINAL/x"), "$ORIGINAL/x");
    EXPECT_EQ(tokens.expand("$LIBRARY"), "$LIBRARY");
    EXPECT_EQ(tokens.expand("/a/$HOME/b"), "/a/$HOME/b");
    EXPECT_EQ(tokens.expand("${ORIGIN/x"), "${ORIGIN/x");
    EXPECT_EQ(tokens.expand("end$"), "end$");
}

TEST(DynamicStringTokens, AnUnknownPlatformDropsTheEntry) {
    const DynamicStringTokens unknown{"/o", "lib", ""};
    EXPECT_FALSE(unknown.expand("/opt/$PLATFORM"));
    EXPECT_EQ(unknown.directories("/a:/opt/$PLATFORM:/b"), (std::vector<std::string>{"/a", "/b"}));
}

TEST(DynamicStringTokens, AnEmptyEntryIsTheCurrentDirectory) {
    EXPECT_EQ(tokens.directories("/a::/b:"), (std::vector<std::string>{"/a", ".", "/b", "."}));
    EXPECT_EQ(tokens.directories(""), (std::vector<std::string>{"."}));
}

// The library path the loader is given may part its entries with ';' too;
// an object's own search paths only with ':'.
TEST(DynamicStringTokens, SeparatorsAreTheCallersChoice) {
    EXPECT_EQ(tokens.directories("/a;/b:/c", ":;"), (std::vector<std::string>{"/a", "/b", "/c"}));
    EXPECT_EQ(tokens.directories("/a;/b:/c"), (std::vector<std::string>{"/a;/b", "/c"}));
}

TEST(DynamicStringTokens, TheOriginIsTheAbsoluteDirectoryWithoutFollowingLinks) {
    EXPECT_EQ(originOf("/usr/lib/libc.so.6"), "/usr/lib");
    EXPECT_EQ(originOf("/libc.so.6"), "/");
    EXPECT_EQ(originOf("bin/app"), (std::filesystem::current_path() / "bin").string());
}

} // namespace
} // namespace qxqr
