// SPDX-License-Identifier: MIT
#include "MatchText.hpp"

#include "SmallStack.hpp"

#include <gtest/gtest.h>

#include <string>

using qxqr::MatchText;

namespace {

TEST(MatchText, HeadingIsTakenApart) {
    const nlohmann::json parts = MatchText("rules/a, line 3.rules, line 12: \nexclude if true\n").toJson();
    EXPECT_EQ("rules/a, line 3.rules", parts["script"]);
    EXPECT_EQ(12, parts["line"]);
    EXPECT_EQ("exclude if true\n", parts["text"]);
}

TEST(MatchText, TextWithoutTheHeadingIsKeptWhole) {
    for (const std::string text : {"no heading\n", "a, line : \nx", "a, line 1x: \nx", "a, line 1:\nx", ""}) {
        const nlohmann::json parts = MatchText(text).toJson();
        EXPECT_TRUE(parts["script"].is_null()) << text;
        EXPECT_TRUE(parts["line"].is_null()) << text;
        EXPECT_EQ(text, parts["text"]);
    }
}

// A rule's text is as long as the script made it: a chain of a million terms.
TEST(MatchText, RuleOfAMillionTermsOnASmallStack) {
    const std::string rule = "exclude if " + std::string(4000000, 'a') + "\n";
    nlohmann::json parts;
    SmallStack::run([&] { parts = MatchText("s.rules, line 1: \n" + rule).toJson(); });
    EXPECT_EQ("s.rules", parts["script"]);
    EXPECT_EQ(rule, parts["text"]);
}

} // namespace
