// SPDX-License-Identifier: MIT
#include "expr/pathTextNormalForm.hpp"

#include "SlashCollapseTiming.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <string>

using QuorelScript::collapseDoubledSlashes;
using QuorelScript::isNormalPathText;
using QuorelScript::normalizePathText;
using QuorelScript::trimmedOfPathWhiteSpace;

namespace {

std::string normalized(std::string text) {
    normalizePathText(text);
    return text;
}

// Runs `body` in the given locale, if the machine has it, and restores the
// one before.
template <class Body>
bool inLocale(const char* name, Body body) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, name) == nullptr)
        return false;
    body();
    std::setlocale(LC_ALL, saved.c_str());
    return true;
}

} // namespace

TEST(pathTextNormalForm, CollapsesRunsOfSlashes) {
    EXPECT_EQ("a/b", normalized("a//b"));
    EXPECT_EQ("a/b", normalized("a////b"));
    EXPECT_EQ("/", normalized("//"));
    EXPECT_EQ("/a/b/", normalized("//a//b//"));
}

TEST(pathTextNormalForm, TrimsTheSevenWhiteSpaceCharacters) {
    EXPECT_EQ("/usr/lib", normalized("  /usr/lib \n"));
    EXPECT_EQ("", normalized(" \t\v\b\n\r\f"));
    EXPECT_EQ("\a/x\x1b", normalized("\a/x\x1b"));
    EXPECT_EQ("a b", std::string(trimmedOfPathWhiteSpace("\b a b\f")));
}

TEST(pathTextNormalForm, KeepsEverythingElse) {
    EXPECT_EQ("/a/./b/../c/", normalized("/a/./b/../c/"));
    EXPECT_EQ("/A/ /B\\\\", normalized("/A/ /B\\\\"));
}

TEST(pathTextNormalForm, ANulEndsTheTextOnlyOnceSomethingWasCollapsed) {
    EXPECT_EQ("a/b", normalized(std::string("a//b\0c", 6)));
    EXPECT_EQ(std::string("a/b\0c//d", 8), normalized(std::string("a/b\0c//d", 8)));
}

TEST(pathTextNormalForm, RecognisesTextsInNormalForm) {
    EXPECT_TRUE(isNormalPathText(""));
    EXPECT_TRUE(isNormalPathText("/a/b c/"));
    EXPECT_FALSE(isNormalPathText("a//b"));
    EXPECT_FALSE(isNormalPathText(" a"));
    EXPECT_FALSE(isNormalPathText("a\b"));
    EXPECT_TRUE(isNormalPathText(std::string("a\0//", 4)));
}

// In UTF-8 a '/' byte is never part of another character, so the byte
// search finds the same slashes as the multibyte-aware one would.
TEST(pathTextNormalForm, CollapsesAlikeInUtf8) {
    const bool ran = inLocale("C.UTF-8", [] {
        EXPECT_EQ("\xc3\xa9/\xc3\xa9/", normalized("\xc3\xa9//\xc3\xa9//"));
        EXPECT_EQ("\xff/\xfe", normalized("\xff///\xfe"));
    });
    if (!ran)
        GTEST_SKIP() << "no C.UTF-8 locale on this machine";
}

TEST(pathTextNormalForm, CollapsingIsLinearInTheSlashes) {
    expectCollapsingLinearInTheSlashes(1 << 14);
}
