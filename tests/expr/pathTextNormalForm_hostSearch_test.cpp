// SPDX-License-Identifier: MIT
// In a locale whose multibyte characters are not UTF-8, a '/' byte is not
// known to be a whole character, so runs of slashes are found with the host's
// multibyte-aware search. This executable replaces that search with one that
// counts its calls and the bytes it looks at. It runs in a GBK locale that
// CTest makes first, found through LOCPATH.
#include "expr/pathTextNormalForm.hpp"

#include <qxqrscript/host.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct SearchCount {
    std::size_t calls = 0;
    std::size_t bytesLookedAt = 0;
};

SearchCount searches;

} // namespace

// The linker takes this in place of the library's own, which lives in a
// separate member of its static archive. In GBK no byte of a two-byte
// character is a slash, so a search byte by byte finds what the real one
// finds; the tests below can therefore only see how the normalizer uses the
// search, not the search itself. It looks at bytes only as far as it must,
// as the real one does.
char* hbMultiByteStrStr(char* haystack, const char* needle) {
    ++searches.calls;
    const std::size_t needleLength = std::strlen(needle);
    for (char* start = haystack;; ++start) {
        std::size_t matched = 0;
        while (matched < needleLength && start[matched] == needle[matched])
            ++matched;
        searches.bytesLookedAt += matched + 1;
        if (matched == needleLength)
            return start;
        if (start[matched] == '\0' && matched == 0)
            return nullptr;
    }
}

namespace {

using QuorelScript::collapseDoubledSlashes;

class InAGbkLocale : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = std::setlocale(LC_ALL, nullptr);
        ASSERT_NE(nullptr, std::setlocale(LC_ALL, "C.GBK"))
            << "no GBK locale: CTest makes it and sets LOCPATH (now '"
            << (std::getenv("LOCPATH") != nullptr ? std::getenv("LOCPATH") : "") << "')";
        ASSERT_EQ(2u, MB_CUR_MAX);
        searches = SearchCount();
    }

    void TearDown() override { std::setlocale(LC_ALL, saved_.c_str()); }

    static std::string collapsed(std::string text) {
        collapseDoubledSlashes(text);
        return text;
    }

private:
    std::string saved_;
};

TEST_F(InAGbkLocale, RunsOfSlashesAreFoundWithTheHostsSearch) {
    EXPECT_EQ("a/b/c", collapsed("a//b///c"));
    // One search finds the first pair, and one more follows each slash dropped.
    EXPECT_EQ(4u, searches.calls);
}

TEST_F(InAGbkLocale, TwoByteCharactersAroundTheSlashesStayWhole) {
    const std::string ah = "\xb0\xa1";
    EXPECT_EQ(ah + "/" + ah + "/", collapsed(ah + "//" + ah + "///"));
    EXPECT_LT(0u, searches.calls);
}

TEST_F(InAGbkLocale, TextWithoutTwoSlashBytesInARowIsNotSearched) {
    EXPECT_EQ("/a/b/\xb0\xa1", collapsed("/a/b/\xb0\xa1"));
    EXPECT_EQ(0u, searches.calls);
}

TEST_F(InAGbkLocale, ANulEndsTheTextOnceSlashesAreCollapsed) {
    EXPECT_EQ("a/b", collapsed(std::string("a//b\0c//d", 9)));
}

// Each search starts where the one before stopped, so every byte is looked
// at a few times, however many pairs there are; a search from the start of
// the text each time would look at the kept pieces again and again.
TEST_F(InAGbkLocale, SearchingManyPairsLooksAtEachByteAFewTimes) {
    const std::size_t pairs = 30000;
    std::string text, expected;
    for (std::size_t i = 0; i < pairs; ++i) {
        text += "x//";
        expected += "x/";
    }
    EXPECT_EQ(expected, collapsed(text));
    EXPECT_EQ(pairs + 1, searches.calls);
    EXPECT_LE(searches.bytesLookedAt, 3 * text.size());
}

TEST(PathTextNormalFormInUtf8, SlashesAreCollapsedWithoutTheHostsSearch) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(nullptr, std::setlocale(LC_ALL, "C.UTF-8"));
    searches = SearchCount();
    std::string text = "a//b";
    collapseDoubledSlashes(text);
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ("a/b", text);
    EXPECT_EQ(0u, searches.calls);
}

} // namespace
