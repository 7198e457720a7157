// SPDX-License-Identifier: MIT
#include "PathParts.hpp"

#include <gtest/gtest.h>

using namespace qxqr::bench;

namespace {

std::string described(const std::string& path) {
    std::string text;
    for (const PathPart& part : pathParts(path))
        text += (part.isVariable ? "<" + part.text + ">" : part.text) + "|";
    return text;
}

} // namespace

TEST(PathParts, VariablesAndTextAlternate) {
    EXPECT_EQ("<dir>|/|<name>|.h|", described("$dir/$name.h"));
}

TEST(PathParts, ANameTakesLettersDigitsAndUnderscores) {
    EXPECT_EQ("<name_h2>|.x|", described("$name_h2.x"));
    EXPECT_EQ("<name>|<vrk>|", described("$name$vrk"));
}

TEST(PathParts, ADollarNotBeforeALetterIsText) {
    EXPECT_EQ("a$1/$|", described("a$1/$"));
}

TEST(PathParts, PlainPathIsOnePart) {
    EXPECT_EQ("/usr/include/|", described("/usr/include/"));
    EXPECT_TRUE(pathParts("").empty());
}
