// SPDX-License-Identifier: MIT
#include "rules/kfStringProcedureAdapter.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class AnsweringIncluder : public QuorelRules::Includer {
public:
    explicit AnsweringIncluder(bool answer) : answer_(answer) {}
    bool include(const char* path) override {
        paths.push_back(path);
        return answer_;
    }

    std::vector<std::string> paths;

private:
    bool answer_;
};

} // namespace

TEST(kfStringProcedureAdapter, HandsEachPathToTheIncluder) {
    AnsweringIncluder includer(true);
    const kfStringProcedureAdapter<QuorelRules::Includer> adapter(includer);
    const kfStringProcedure& procedure = adapter;
    procedure("/a");
    procedure("/b");
    EXPECT_EQ(includer.paths, (std::vector<std::string>{"/a", "/b"}));
}

TEST(kfStringProcedureAdapter, ReturnsTheIncludersAnswer) {
    AnsweringIncluder yes(true);
    AnsweringIncluder no(false);
    EXPECT_TRUE(kfStringProcedureAdapter<QuorelRules::Includer>(yes)("/a"));
    EXPECT_FALSE(kfStringProcedureAdapter<QuorelRules::Includer>(no)("/a"));
}
