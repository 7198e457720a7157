// SPDX-License-Identifier: MIT
// In a locale whose multibyte characters are not UTF-8, a '/' byte is not
// known to be a whole character, so runs of slashes are found with the host's
// multibyte-aware search. This executable replaces that search with one that
// counts its calls and the bytes it looks at, and makes a GBK locale of its
// own with localedef (Debian's package locales has the sources).
#include "expr/pathTextNormalForm.hpp"

#include <qxqrscript/host.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

struct SearchCount {
    std::size_t calls = 0;
    std::size_t bytesLookedAt = 0;
};

SearchCount searches;

} // namespace

// The linker takes this in place of the library's own, which lives in a
// separate member of its static archive. In GBK no byte of a two-byte
// character is a slash, so a byte search finds what the real one finds.
char* hbMultiByteStrStr(char* haystack, const char* needle) {
    ++searches.calls;
    char* hit = std::strstr(haystack, needle);
    searches.bytesLookedAt += hit != nullptr ? static_cast<std::size_t>(hit - haystack) + std::strlen(needle)
                                             : std::strlen(haystack);
    return hit;
}

namespace {

using QuorelScript::collapseDoubledSlashes;

class InAGbkLocale : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        char folder[] = "/tmp/qxqr-locale-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(folder));
        localeFolder_ = folder;
        const std::string make = "localedef -i C -f GBK " + localeFolder_ + "/C.GBK";
        ASSERT_EQ(0, std::system(make.c_str())) << "localedef could not make a GBK locale: " << make;
        // The C library reads LOCPATH anew at every setlocale.
        setenv("LOCPATH", localeFolder_.c_str(), 1);
    }

    static void TearDownTestSuite() {
        unsetenv("LOCPATH");
        std::system(("rm -rf " + localeFolder_).c_str());
    }

    void SetUp() override {
        saved_ = std::setlocale(LC_ALL, nullptr);
        ASSERT_NE(nullptr, std::setlocale(LC_ALL, "C.GBK"));
        ASSERT_EQ(2u, MB_CUR_MAX);
        searches = SearchCount();
    }

    void TearDown() override { std::setlocale(LC_ALL, saved_.c_str()); }

    static std::string collapsed(std::string text) {
        collapseDoubledSlashes(text);
        return text;
    }

private:
    static std::string localeFolder_;
    std::string saved_;
};

std::string InAGbkLocale::localeFolder_;

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

// Each search starts where the one before stopped, so a name of slashes only
// is looked at about twice, not once per slash dropped.
TEST_F(InAGbkLocale, SearchingALongRunOfSlashesLooksAtEachByteAFewTimes) {
    const std::size_t length = 100000;
    EXPECT_EQ("/", collapsed(std::string(length, '/')));
    EXPECT_EQ(length, searches.calls);
    EXPECT_LE(searches.bytesLookedAt, 3 * length);
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
