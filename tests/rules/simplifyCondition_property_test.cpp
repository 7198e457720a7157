// SPDX-License-Identifier: MIT
#include "rules/simplifyCondition.hpp"

#include "DynamicType.hpp"
#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <typeinfo>
#include <vector>

using namespace testing_rules;

namespace {

using Owned = std::unique_ptr<Expression<bool>>;

// Random conditions over literals, existence tests and path comparisons, on
// paths of a small tree, written plainly and with variables.
class RandomConditions {
public:
    RandomConditions(const TempTree& tree, std::mt19937& random) : random_(random) {
        const std::string root = tree.path();
        paths_ = {root + "/a.txt",
                  root + "/sub",
                  root + "/none",
                  root + "/libm.so",
                  root + "/$arch",
                  root,
                  "$file",
                  "$dir",
                  "$dir/$name$ext",
                  "$dir/$name$vrk",
                  "$caller",
                  "$cwd/a.txt",
                  "$vantor/libm$lib",
                  "$toolbox",
                  "${dir}/b.c",
                  "$unknown/a.txt"};
    }

    Expression<bool>* condition(int depth) {
        const int kind = pick(depth > 0 ? 9 : 4);
        switch (kind) {
        case 0:
            return truth(pick(2) == 0);
        case 1:
            return exists(path());
        case 2:
            return equals(path(), path());
        case 3:
            return pathIn(pick(4));
        case 4:
            return both(condition(depth - 1), condition(depth - 1));
        case 5:
            return either(condition(depth - 1), condition(depth - 1));
        case 6:
            return negation(condition(depth - 1));
        case 7:
            return nary<MultiAndExpression>(depth - 1);
        default:
            return nary<MultiOrExpression>(depth - 1);
        }
    }

private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

    std::string path() { return paths_[static_cast<std::size_t>(pick(static_cast<int>(paths_.size())))]; }

    Expression<bool>* pathIn(int size) {
        PathList* list = new PathList;
        for (int i = 0; i < size; ++i)
            list->push_back(pathLiteral(path()));
        return new InExpression(pathLiteral(path()), list);
    }

    template <class Multi>
    Expression<bool>* nary(int depth) {
        Multi* node = new Multi;
        for (int count = pick(4); count > 0; --count)
            node->append(condition(depth));
        return node;
    }

    std::mt19937& random_;
    std::vector<std::string> paths_;
};

// What precompute binds: the root and its toolbox, the current directory and
// the fixed variables.
Bindings knownVariables(const std::string& root, const std::string& cwd) {
    Bindings known;
    const std::pair<const char*, std::string> variables[] = {{"vantor", root}, {"toolbox", root + "/toolbox"},
                                                             {"cwd", cwd},     {"arch", "ia32lx"},
                                                             {"lib", ".so"},   {"vrk", ".vrkilx"}};
    for (const auto& variable : variables)
        known.emplace(Path(std::string(variable.first)), Path(variable.second));
    return known;
}

} // namespace

TEST(simplifyConditionProperty, SimplifiedConditionsKeepTheirValue) {
    TempTree tree;
    tree.file("a.txt");
    tree.file("libm.so");
    tree.file("sub/b.c");
    tree.file("sub/b.vrkilx");
    tree.file("sub/a.txt");
    tree.dir("ia32lx");
    std::mt19937 random(20240611);
    RandomConditions conditions(tree, random);
    const std::vector<std::string> roots = {tree.path(), tree.path("sub")};
    const std::vector<std::string> files = {
        tree.path("a.txt"), tree.path("sub/b.c"), tree.path("sub/x.h"), tree.path("libm.so"), "b.c", ""};
    const std::vector<std::string> callers = {"", tree.path("a.txt"), tree.path("sub/b.c")};
    auto any = [&random](const std::vector<std::string>& texts) {
        return texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(random)];
    };

    int trueResults = 0, falseResults = 0, keptVariables = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        const std::string root = any(roots);
        const std::string cwd = any(roots);
        Owned original(conditions.condition(5));
        original->substituteVariables(knownVariables(root, cwd));
        const std::string before = printed(*original);
        const Owned simplified(simplifyCondition(original->clone()));

        if (simplified->hasVariables())
            ++keptVariables;
        else
            ASSERT_EQ(dynamicType(*simplified), typeid(BooleanLiteral)) << before << " -> " << printed(*simplified);

        for (int query = 0; query < 6; ++query) {
            const std::string file = any(files);
            const std::string caller = any(callers);
            const Bindings bindings(root.c_str(), file.c_str(), caller.c_str(), cwd.c_str());
            const bool expected = original->evaluate(bindings);
            ASSERT_EQ(simplified->evaluate(bindings), expected)
                << before << " -> " << printed(*simplified) << " for " << file << " from " << caller;
            ++(expected ? trueResults : falseResults);
        }
        ASSERT_EQ(printed(*original), before);
    }
    RecordProperty("conditionsKeepingVariables", keptVariables);
    RecordProperty("trueResults", trueResults);
    RecordProperty("falseResults", falseResults);
    // The random conditions are neither all decided nor all of one value.
    EXPECT_GT(keptVariables, 300);
    EXPECT_GT(trueResults, 2000);
    EXPECT_GT(falseResults, 2000);
}
