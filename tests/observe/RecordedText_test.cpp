// SPDX-License-Identifier: MIT
#include "observe/RecordedText.hpp"

#include <gtest/gtest.h>

namespace {

using QuorelScript::RecordedText;
using QuorelScript::splitRecordedText;

TEST(RecordedText, SplitsScriptLineAndRuleText) {
    const RecordedText parts = splitRecordedText("rules/a.rules, line 12: \nexclude if $ext == .o");
    EXPECT_EQ(parts.script, "rules/a.rules");
    EXPECT_EQ(parts.line, 12);
    EXPECT_EQ(parts.text, "exclude if $ext == .o");
}

TEST(RecordedText, KeepsContinuationLinesInTheText) {
    const RecordedText parts = splitRecordedText("s, line 3: \ninclude a ...\n  if b exists");
    EXPECT_EQ(parts.line, 3);
    EXPECT_EQ(parts.text, "include a ...\n  if b exists");
}

TEST(RecordedText, TheScriptNameMayHoldTheHeadingItself) {
    const RecordedText parts = splitRecordedText("odd, line 1: name, line 7: \nprune if true");
    EXPECT_EQ(parts.script, "odd, line 1: name");
    EXPECT_EQ(parts.line, 7);
}

TEST(RecordedText, ATextWithoutTheHeadingIsTheWholeText) {
    for (const char* text : {"<anonymous rule>", "s, line : \nx", "s line 3: \nx", "s, line 3:\nx", ""}) {
        const RecordedText parts = splitRecordedText(text);
        EXPECT_EQ(parts.script, "") << text;
        EXPECT_EQ(parts.line, 0) << text;
        EXPECT_EQ(parts.text, text);
    }
}

} // namespace
