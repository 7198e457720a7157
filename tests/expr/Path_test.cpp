// SPDX-License-Identifier: MIT
#include "expr/Path.hpp"

#include "ExprTesting.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using QuorelScript::Path;
using QuorelScript::PathLiteral;

namespace {

TEST(Path, FromAStringIsNormalized) {
    EXPECT_EQ("/a/b", Path("/a//b").text());
    EXPECT_EQ("/usr/lib", Path(" /usr/lib\n").text());
    EXPECT_STREQ("/a/b", Path("/a//b").c_str());
    EXPECT_EQ(4u, Path("/a//b").length());
}

TEST(Path, LiteralKeepsDoubledSlashesUntilAVariableIsSubstituted) {
    std::unique_ptr<PathLiteral> path(literal("/a//b$x"));
    EXPECT_EQ("/a//b$x", path->path().text());
    path->substituteVariables(bindings({{"y", "/c"}}));
    EXPECT_EQ("/a//b$x", path->path().text());
    path->substituteVariables(bindings({{"x", "/c"}}));
    EXPECT_EQ("/a/b/c", path->path().text());
}

TEST(Path, VerbatimKeepsTheCharactersAsWritten) {
    const std::string text = " /a//b ";
    EXPECT_EQ(" /a//b ", Path::verbatim(text.data(), text.data() + text.length()).text());
}

TEST(Path, EveryPathHasANormalizerOfItsOwnSharedWithItsText) {
    Path a("/a");
    Path b("/a");
    ASSERT_TRUE(a.normalizer());
    EXPECT_NE(a.normalizer(), b.normalizer());
    // The path's own handle and its text's handle.
    EXPECT_EQ(2, a.normalizer().use_count());
}

TEST(Path, CopySharesTheNormalizer) {
    Path original("/a");
    const long before = original.normalizer().use_count();
    {
        Path copy(original);
        EXPECT_EQ(original.normalizer(), copy.normalizer());
        // Every Path holds two handles to its normalizer, its own and its
        // text's, and a copy shares both: so the shared count rises by one per
        // handle, two in all, and falls back when the copy goes.
        EXPECT_EQ(before + 2, original.normalizer().use_count());
    }
    EXPECT_EQ(before, original.normalizer().use_count());
}

TEST(Path, CopyIsNotNormalizedAgain) {
    const std::string text = " /a//b ";
    const Path original = Path::verbatim(text.data(), text.data() + text.length());
    const Path copy(original);
    EXPECT_EQ(" /a//b ", copy.text());
}

TEST(Path, PrefixOrdersFirst) {
    EXPECT_TRUE(Path("/a/b") < Path("/a/b/c"));
    EXPECT_FALSE(Path("/a/b/c") < Path("/a/b"));
}

TEST(Path, OrderIsByteOrderWithoutCaseFolding) {
    EXPECT_TRUE(Path("/A") < Path("/a"));
    EXPECT_FALSE(Path("/a") < Path("/A"));
    EXPECT_NE(Path("/A"), Path("/a"));
}

TEST(Path, BytesCompareAsUnsigned) {
    EXPECT_TRUE(Path("/a") < Path("/\xc3\xa9"));
    EXPECT_FALSE(Path("/\xc3\xa9") < Path("/a"));
}

TEST(Path, EqualityComparesTheTexts) {
    EXPECT_EQ(Path("/a//b"), Path("/a/b"));
    EXPECT_NE(Path("/a"), Path("/a/"));
}

TEST(Path, PrintsItsText) {
    std::ostringstream out;
    out << Path("/x//y");
    EXPECT_EQ("/x/y", out.str());
}

} // namespace
