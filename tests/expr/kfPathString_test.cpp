// SPDX-License-Identifier: MIT
#include "expr/Path.hpp"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <stdexcept>
#include <string>

using QuorelScript::PathNormalizer;
using QuorelScript::PathString;
using QuorelScript::WellFormedPathNormalizer;

namespace {

TEST(kfPathString, WithoutNormalizerAssignsPlainly) {
    PathString text;
    const std::string chars = " a//b ";
    text.assign(chars.data(), chars.length());
    EXPECT_EQ(" a//b ", text.str());
    EXPECT_FALSE(text.normalizer());
}

TEST(kfPathString, AssignmentPassesThroughTheNormalizerAndKeepsTheHandle) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<WellFormedPathNormalizer>();
    PathString text(normalizer);
    const std::string chars = " a//b ";
    text.assign(chars.data(), chars.length());
    EXPECT_EQ("a/b", text.str());
    EXPECT_EQ(normalizer, text.normalizer());
    EXPECT_EQ(2, normalizer.use_count());
}

TEST(kfPathString, CopiesShareTheHandle) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<WellFormedPathNormalizer>();
    PathString text(normalizer);
    PathString copy(text);
    EXPECT_EQ(normalizer, copy.normalizer());
    EXPECT_EQ(3, normalizer.use_count());
}

class FailingNormalizer : public WellFormedPathNormalizer {
public:
    void assign(PathString&, const char*, std::size_t) override { throw std::runtime_error("no"); }
};

TEST(kfPathString, HandleComesBackWhenTheNormalizerThrows) {
    boost::shared_ptr<PathNormalizer> normalizer = boost::make_shared<FailingNormalizer>();
    PathString text(normalizer);
    EXPECT_THROW(text.assign("a", 1), std::runtime_error);
    EXPECT_EQ(normalizer, text.normalizer());
}

} // namespace
