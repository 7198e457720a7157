// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

// Switches the character classification of the process to a UTF-8 locale for
// the lifetime of the object, when the system has one.
class Utf8Locale {
public:
    Utf8Locale() : previous_(std::setlocale(LC_CTYPE, nullptr)) {
        for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8", "en_US.utf8"})
            if (std::setlocale(LC_CTYPE, name) != nullptr)
                return;
        available_ = false;
    }
    ~Utf8Locale() { std::setlocale(LC_CTYPE, previous_.c_str()); }

    bool available() const { return available_; }

private:
    std::string previous_;
    bool available_ = true;
};

std::ptrdiff_t offsetOf(char* haystack, const char* needle) {
    const char* hit = hbMultiByteStrStr(haystack, needle);
    return hit == nullptr ? -1 : hit - haystack;
}

TEST(hbMultiByteStrStr, FindsTheFirstOccurrence) {
    char text[] = "/a//b//c";
    EXPECT_EQ(2, offsetOf(text, "//"));
    EXPECT_EQ(5, offsetOf(text + 3, "//") + 3);
    EXPECT_EQ(-1, offsetOf(text, "///"));
    EXPECT_EQ(7, offsetOf(text, "c"));
}

TEST(hbMultiByteStrStr, EmptyNeedleMatchesAtOnce) {
    char text[] = "abc";
    EXPECT_EQ(0, offsetOf(text, ""));
    char empty[] = "";
    EXPECT_EQ(0, offsetOf(empty, ""));
    EXPECT_EQ(-1, offsetOf(empty, "a"));
}

TEST(hbMultiByteStrStr, StopsAtTheTerminator) {
    char text[] = "ab\0cd";
    EXPECT_EQ(-1, offsetOf(text, "cd"));
}

TEST(hbMultiByteStrStr, StepsOverWholeCharacters) {
    Utf8Locale utf8;
    if (!utf8.available())
        GTEST_SKIP() << "no UTF-8 locale on this system";
    // U+00E9 U+00A9 is C3 A9 C2 A9: the bytes A9 C2 occur across the two
    // characters, but no character starts there.
    char text[] = "\xc3\xa9\xc2\xa9/x";
    EXPECT_EQ(-1, offsetOf(text, "\xa9\xc2"));
    EXPECT_EQ(-1, offsetOf(text, "\xa9"));
    EXPECT_EQ(2, offsetOf(text, "\xc2\xa9"));
    EXPECT_EQ(4, offsetOf(text, "/x"));
}

TEST(hbMultiByteStrStr, ByteThatStartsNoCharacterAdvancesByOne) {
    Utf8Locale utf8;
    if (!utf8.available())
        GTEST_SKIP() << "no UTF-8 locale on this system";
    // A lone continuation byte, then an incomplete sequence cut short by '/'.
    char text[] = "\xa9\xc3//a";
    EXPECT_EQ(2, offsetOf(text, "//"));
    EXPECT_EQ(1, offsetOf(text, "\xc3"));
}

TEST(hbMultiByteStrStr, EveryByteStartsACharacterInTheClassicLocale) {
    const std::string previous = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    char text[] = "\xc3\xa9\xc2\xa9";
    const std::ptrdiff_t offset = offsetOf(text, "\xa9\xc2");
    std::setlocale(LC_CTYPE, previous.c_str());
    EXPECT_EQ(1, offset);
}

} // namespace
