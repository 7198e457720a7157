// SPDX-License-Identifier: MIT
#include "expr/Path.hpp"

#include "ExprTesting.hpp"

#include <gtest/gtest.h>

#include <string>

using QuorelScript::Bindings;
using QuorelScript::Path;

namespace {

const Bindings fileBound = bindings({{"file", "/x/y.c"}});

TEST(substituteVariables, PlainAndBracedNames) {
    EXPECT_EQ("/x/y.c", evaluated("$file", fileBound));
    EXPECT_EQ("/x/y.c", evaluated("${file}", fileBound));
    EXPECT_EQ("/x/y.c.o", evaluated("${file}.o", fileBound));
}

TEST(substituteVariables, DotEndsAPlainName) {
    EXPECT_EQ("/x/y.c.o", evaluated("$file.o", fileBound));
}

TEST(substituteVariables, NameCharactersAreLettersDigitsAndUnderscore) {
    const Bindings variables = bindings({{"a_1Z", "/v"}, {"a", "/short"}});
    EXPECT_EQ("/v-", evaluated("$a_1Z-", variables));
    EXPECT_EQ("/short-1Z", evaluated("$a-1Z", variables));
}

TEST(substituteVariables, UnknownVariableStaysAsWritten) {
    EXPECT_EQ("$unknown/a", evaluated("$unknown/a", fileBound));
    EXPECT_EQ("${unknown}/a", evaluated("${unknown}/a", fileBound));
}

TEST(substituteVariables, LoneDollarStays) {
    EXPECT_EQ("$", evaluated("$", fileBound));
    EXPECT_EQ("$/", evaluated("$/", fileBound));
    EXPECT_EQ("a$-$file", evaluated("a$-$file", bindings({{"x", "/y"}})));
}

TEST(substituteVariables, EmptyBracesStay) {
    EXPECT_EQ("${}", evaluated("${}", fileBound));
    EXPECT_EQ("${}/x/y.c", evaluated("${}$file", fileBound));
}

TEST(substituteVariables, SkippedDollarDoesNotHideTheNextReference) {
    EXPECT_EQ("$-/x/y.c", evaluated("$-$file", fileBound));
}

TEST(substituteVariables, UnclosedBraceTakesTheRestOfTheTextAsTheName) {
    EXPECT_EQ("/x/y.c", evaluated("${file", fileBound));
    EXPECT_EQ("${file", evaluated("${file", bindings({{"other", "/o"}})));
    EXPECT_EQ("${file/a", evaluated("${file/a", fileBound));
}

// The empty name is looked up like any other when a '$' ends the text.
TEST(substituteVariables, DollarAtTheEndRefersToTheEmptyName) {
    EXPECT_EQ("/a/e", evaluated("/a/$", bindings({{"", "e"}})));
    EXPECT_EQ("$/a", evaluated("$/a", bindings({{"", "e"}})));
}

// Names are made into paths, and so normalized, before they are looked up.
TEST(substituteVariables, BracedNameIsNormalizedBeforeTheLookUp) {
    EXPECT_EQ("/x/y.c", evaluated("${ file }", fileBound));
}

TEST(substituteVariables, EmptyBindingsLeaveTheTextExactlyAsWritten) {
    EXPECT_EQ(" $file//a ", evaluated(" $file//a ", Bindings()));
}

TEST(substituteVariables, WithoutAReplacementTheTextIsNotNormalized) {
    EXPECT_EQ(" /a//b $unknown", evaluated(" /a//b $unknown", fileBound));
}

TEST(substituteVariables, ReplacementNormalizesTheWholeText) {
    EXPECT_EQ("/a/b", evaluated("$d/b", bindings({{"d", "/a/"}})));
    EXPECT_EQ("/c/a/b", evaluated("  /c//$d/b ", bindings({{"d", "a/"}})));
}

TEST(substituteVariables, ValueWithReferencesIsExpandedInTurn) {
    const Bindings variables = bindings({{"a", "$b/x"}, {"b", "/root"}});
    EXPECT_EQ("/root/x/y", evaluated("$a/y", variables));
}

// After a replacement the search resumes at the replaced '$' itself, not at
// the start of the text: the skipped '$' in front stays skipped even though it
// is now followed by a name.
TEST(substituteVariables, SearchResumesAtTheReplacedReference) {
    EXPECT_EQ("$b", evaluated("$$a", bindings({{"a", "b"}, {"b", "/B"}})));
}

// After an unknown reference the search resumes one character after its '$',
// so a reference inside it is still found.
TEST(substituteVariables, SearchGoesOnRightAfterAnUnknownReferencesDollar) {
    EXPECT_EQ("${x/v}", evaluated("${x$a}", bindings({{"a", "/v"}})));
}

TEST(substituteVariables, BracedNameEndsAtTheFirstClosingBrace) {
    EXPECT_EQ("/x/y.c}", evaluated("${file}}", fileBound));
}

TEST(substituteVariables, SelfReferenceStopsAfterOneHundredReplacements) {
    std::string expected = "$a";
    for (int i = 0; i < 100; ++i)
        expected += "/x";
    EXPECT_EQ(expected, evaluated("$a", bindings({{"a", "$a/x"}})));
}

TEST(substituteVariables, BudgetCoversTheWholePath) {
    // The one hundred replacements are spent on the first reference; the
    // second stays as written.
    std::string expected = "$a";
    for (int i = 0; i < 100; ++i)
        expected += "/x";
    expected += "-$b";
    EXPECT_EQ(expected, evaluated("$a-$b", bindings({{"a", "$a/x"}, {"b", "/b"}})));
}

TEST(substituteVariables, EverySubstitutionIsCounted) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 101; ++i) {
        text += "$v";
        expected += i < 100 ? "w" : "$v";
    }
    EXPECT_EQ(expected, evaluated(text.c_str(), bindings({{"v", "w"}})));
}

TEST(substituteVariables, ReplacesInPlaceAndKeepsTheNormalizer) {
    const std::string text = "$file";
    Path path = Path::verbatim(text.data(), text.data() + text.length());
    const boost::shared_ptr<QuorelScript::PathNormalizer> normalizer = path.normalizer();
    path.substituteVariables(fileBound);
    EXPECT_EQ("/x/y.c", path.text());
    EXPECT_EQ(normalizer, path.normalizer());
}

} // namespace
