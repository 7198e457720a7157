// SPDX-License-Identifier: MIT
#include "rules/expandIncludeRule.hpp"

#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace testing_rules;
using Paths = std::vector<std::string>;

namespace {

// A tree with files, a subdirectory and names for patterns to tell apart.
class IncludeExpansion : public ::testing::Test {
protected:
    IncludeExpansion() {
        tree.file("lib/a.txt");
        tree.file("lib/b.txt");
        tree.file("lib/ab.txt");
        tree.file("lib/c.so");
        tree.file("lib/sub/deep.txt");
        tree.file("single/only.h");
    }

    std::string at(const std::string& relative) const { return tree.path(relative); }

    Paths expand(std::initializer_list<std::string> paths, Expression<bool>* condition,
                 const Bindings& bindings = Bindings()) {
        const std::unique_ptr<IncludeRule> rule(includeRule(paths, condition));
        RecordingIncluder includer;
        expandIncludeRule(*rule, bindings, includer);
        return includer.paths;
    }

    TempTree tree;
};

} // namespace

TEST_F(IncludeExpansion, FalseConditionReportsNothing) {
    EXPECT_EQ(expand({"/no/such/file", at("lib"), at("lib/?.txt")}, truth(false)), Paths{});
}

TEST_F(IncludeExpansion, ConditionIsEvaluatedWithTheBindings) {
    const Bindings bindings("/v", "/x/main.c", "", "/w");
    EXPECT_EQ(expand({"/inc"}, equals("$file", "/x/main.c"), bindings), Paths{"/inc"});
    EXPECT_EQ(expand({"/inc"}, equals("$file", "/x/other.c"), bindings), Paths{});
}

TEST_F(IncludeExpansion, MissingPlainPathIsReportedOnceUnchanged) {
    EXPECT_EQ(expand({at("lib/missing.h")}, truth(true)), Paths{at("lib/missing.h")});
}

TEST_F(IncludeExpansion, ExistingPlainFileIsReportedAsItIs) {
    EXPECT_EQ(expand({at("lib/c.so")}, truth(true)), Paths{at("lib/c.so")});
}

// Listed as a whole: its files come, not the directory itself, nor its
// subdirectory or what lies below that.
TEST_F(IncludeExpansion, DirectoryReportsItsFiles) {
    EXPECT_EQ(expand({at("lib")}, truth(true)),
              (Paths{at("lib/a.txt"), at("lib/ab.txt"), at("lib/b.txt"), at("lib/c.so")}));
}

// Being a directory decides before the wildcard test: a directory whose
// name holds a '?' is listed as a whole, not matched as a pattern (which
// would find the directory itself and drop it).
TEST_F(IncludeExpansion, DirectoryWithAWildcardInItsNameIsListedAsAWhole) {
    tree.file("odd?dir/inside.h");
    EXPECT_EQ(expand({at("odd?dir")}, truth(true)), Paths{at("odd?dir/inside.h")});
}

TEST_F(IncludeExpansion, QuestionMarkPatternIsMatched) {
    EXPECT_EQ(expand({at("lib/?.txt")}, truth(true)), (Paths{at("lib/a.txt"), at("lib/b.txt")}));
}

TEST_F(IncludeExpansion, StarPatternIsMatchedAndDirectoriesAreDropped) {
    EXPECT_EQ(expand({at("lib/*")}, truth(true)),
              (Paths{at("lib/a.txt"), at("lib/ab.txt"), at("lib/b.txt"), at("lib/c.so")}));
}

TEST_F(IncludeExpansion, PatternMatchingNothingReportsNothing) {
    EXPECT_EQ(expand({at("lib/*.none")}, truth(true)), Paths{});
}

TEST_F(IncludeExpansion, PathsAreVariablesResolvedBeforeExpansion) {
    const Bindings bindings("/v", at("lib/main.c").c_str(), "", "/w");
    EXPECT_EQ(expand({"$dir/?.txt", "$dir/$name.h"}, truth(true), bindings),
              (Paths{at("lib/a.txt"), at("lib/b.txt"), at("lib/main.h")}));
}

TEST_F(IncludeExpansion, ThreePathsAreReportedInListOrder) {
    EXPECT_EQ(expand({at("single"), "/plain/x.h", at("lib/?b.txt")}, truth(true)),
              (Paths{at("single/only.h"), "/plain/x.h", at("lib/ab.txt")}));
}

TEST_F(IncludeExpansion, DuplicatesAreNotFiltered) {
    EXPECT_EQ(expand({"/x.h", at("single"), "/x.h", at("single/only.h")}, truth(true)),
              (Paths{"/x.h", at("single/only.h"), "/x.h", at("single/only.h")}));
}

// Under the leak checker this also proves that the callback adapter goes
// when the includer fails inside the directory services.
TEST_F(IncludeExpansion, IncludersExceptionPassesThrough) {
    const std::unique_ptr<IncludeRule> rule(includeRule({at("lib")}, truth(true)));
    ThrowingIncluder includer;
    EXPECT_THROW(expandIncludeRule(*rule, Bindings(), includer), std::runtime_error);
    const std::unique_ptr<IncludeRule> plain(includeRule({"/plain"}, truth(true)));
    EXPECT_THROW(expandIncludeRule(*plain, Bindings(), includer), std::runtime_error);
}
