// SPDX-License-Identifier: MIT
#include "expr/Path.hpp"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <string>
#include <vector>

using QuorelScript::PathNormalizer;
using QuorelScript::PathString;
using QuorelScript::WellFormedPathNormalizer;

namespace {

// The text as the normalizer makes it when it normalizes it in place.
std::string normalized(const std::string& text) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<WellFormedPathNormalizer>();
    PathString target(normalizer);
    target.str() = text;
    normalizer->normalize(target);
    return target.str();
}

// The text as the normalizer makes it when it is assigned through it.
std::string assigned(const std::string& text) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<WellFormedPathNormalizer>();
    PathString target(normalizer);
    normalizer->assign(target, text.data(), text.length());
    return target.str();
}

TEST(kfWellFormedPathNormalizer, CollapsesDoubledSlashes) {
    EXPECT_EQ("a/b", normalized("a//b"));
    EXPECT_EQ("a/b", normalized("a////b"));
    EXPECT_EQ("/a/b/c/", normalized("//a///b//c//"));
}

TEST(kfWellFormedPathNormalizer, TwoSlashesBecomeOne) {
    EXPECT_EQ("/", normalized("//"));
}

TEST(kfWellFormedPathNormalizer, RemovesOuterWhiteSpace) {
    EXPECT_EQ("/usr/lib", normalized("  /usr/lib \n"));
}

TEST(kfWellFormedPathNormalizer, WhiteSpaceOnlyBecomesEmpty) {
    EXPECT_EQ("", normalized(" \t\n "));
    EXPECT_EQ("", normalized(""));
}

TEST(kfWellFormedPathNormalizer, KeepsEverythingElse) {
    EXPECT_EQ("/a/./b/../c/", normalized("/a/./b/../c/"));
    EXPECT_EQ("/A/B", normalized("/A/B"));
    EXPECT_EQ("/a/ /b", normalized("/a/ /b"));
    EXPECT_EQ("a\\\\b", normalized("a\\\\b"));
    EXPECT_EQ("/a b/c\td", normalized(" /a b/c\td "));
}

TEST(kfWellFormedPathNormalizer, BackspaceCountsAsWhiteSpace) {
    EXPECT_EQ("/a", normalized("\b/a\b"));
    EXPECT_EQ("/a", normalized(" \b /a \b\n"));
}

TEST(kfWellFormedPathNormalizer, WhiteSpaceIsExactlySpaceTabVerticalTabBackspaceLineFeedReturnFormFeed) {
    for (char space : std::string(" \t\v\b\n\r\f"))
        EXPECT_EQ("x", normalized(std::string(1, space) + "x" + space)) << int(space);
    for (char other : std::string("\a\x1b\x7f\x1f"))
        EXPECT_EQ(std::string(1, other) + "x" + other, normalized(std::string(1, other) + "x" + other)) << int(other);
}

TEST(kfWellFormedPathNormalizer, NulInTheMiddleCutsTheTextOnlyWhenSlashesWereCollapsed) {
    EXPECT_EQ("a/b", normalized(std::string("a//b\0c", 6)));
    EXPECT_EQ(std::string("a/b\0c", 5), normalized(std::string("a/b\0c", 5)));
    // Slashes after the NUL lie beyond the end that the search sees.
    EXPECT_EQ(std::string("a/b\0//c", 7), normalized(std::string("a/b\0//c", 7)));
}

TEST(kfWellFormedPathNormalizer, NormalizingTwiceChangesNothing) {
    for (const char* text : {"  //a//b/ ", "/usr/lib", "\b\n", "/a/./b/"})
        EXPECT_EQ(normalized(text), normalized(normalized(text))) << text;
}

TEST(kfWellFormedPathNormalizer, AssignmentNormalizes) {
    EXPECT_EQ("/a/b", assigned(" /a//b\t"));
}

TEST(kfWellFormedPathNormalizer, AssigningTheSameCharactersTwiceGivesTheSameText) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<WellFormedPathNormalizer>();
    PathString target(normalizer);
    const std::string text = " //x//y ";
    normalizer->assign(target, text.data(), text.length());
    const std::string first = target.str();
    normalizer->assign(target, text.data(), text.length());
    EXPECT_EQ("/x/y", first);
    EXPECT_EQ(first, target.str());
}

// Records every normalize call and whether the target held its handle then.
class RecordingNormalizer : public QuorelScript::WellFormedPathNormalizer {
public:
    void normalize(PathString& target) override {
        handleAttached.push_back(target.normalizer().get() != nullptr);
        WellFormedPathNormalizer::normalize(target);
    }
    std::vector<bool> handleAttached;
};

TEST(kfWellFormedPathNormalizer, LeadingTrimIsFollowedByOneNestedPassWithTheHandleDetached) {
    boost::shared_ptr<RecordingNormalizer> normalizer = boost::make_shared<RecordingNormalizer>();
    PathString target(normalizer);
    target.str() = "  /a  ";
    normalizer->normalize(target);
    EXPECT_EQ("/a", target.str());
    // The nested pass removes the trailing blanks too, so the outer trailing
    // trim finds nothing left to do.
    EXPECT_EQ((std::vector<bool>{true, false}), normalizer->handleAttached);
    EXPECT_EQ(normalizer, target.normalizer());
}

TEST(kfWellFormedPathNormalizer, TrailingTrimIsFollowedByOneNestedPassWithTheHandleDetached) {
    boost::shared_ptr<RecordingNormalizer> normalizer = boost::make_shared<RecordingNormalizer>();
    PathString target(normalizer);
    target.str() = "/a \n";
    normalizer->normalize(target);
    EXPECT_EQ("/a", target.str());
    EXPECT_EQ((std::vector<bool>{true, false}), normalizer->handleAttached);
}

TEST(kfWellFormedPathNormalizer, NormalTextNeedsNoNestedPass) {
    boost::shared_ptr<RecordingNormalizer> normalizer = boost::make_shared<RecordingNormalizer>();
    PathString target(normalizer);
    target.str() = "/a//b";
    normalizer->normalize(target);
    EXPECT_EQ("/a/b", target.str());
    EXPECT_EQ(std::vector<bool>{true}, normalizer->handleAttached);
}

TEST(kfWellFormedPathNormalizer, AssignmentGoesThroughTheTargetsHandleDetachedThenNormalizesAgain) {
    boost::shared_ptr<RecordingNormalizer> normalizer = boost::make_shared<RecordingNormalizer>();
    PathString target(normalizer);
    const std::string text = "/a//b";
    normalizer->assign(target, text.data(), text.length());
    EXPECT_EQ("/a/b", target.str());
    // First the handle's own assignment, made while the handle is away; then
    // this normalizer's pass, with the handle back in place.
    EXPECT_EQ((std::vector<bool>{false, true}), normalizer->handleAttached);
    EXPECT_EQ(normalizer, target.normalizer());
    EXPECT_EQ(2, normalizer.use_count());
}

} // namespace
