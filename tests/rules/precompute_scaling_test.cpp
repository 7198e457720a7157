// SPDX-License-Identifier: MIT
// Merging and simplifying many rules costs time in proportion to their
// number: sixteen times the rules may not take more than sixty-four times
// as long (a quadratic merge would take about 256 times).
#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

namespace {

std::string manyRules(int count) {
    std::string script;
    for (int i = 0; i < count; ++i)
        script += "exclude if $file == /p/" + std::to_string(i) + ".c or $ext == .o" + std::to_string(i) + "\n";
    return script;
}

double secondsToPrecompute(int rules) {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> parsed(parser.parse(manyRules(rules).c_str()));
    const auto start = std::chrono::steady_clock::now();
    parsed->precompute();
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(parsed->isExcluded("/p/7.c", nullptr, nullptr));
    EXPECT_FALSE(parsed->isExcluded("/p/x.c", nullptr, nullptr));
    return std::chrono::duration<double>(elapsed).count();
}

} // namespace

// The best of three runs is compared, so that a busy machine does not decide.
double bestSecondsToPrecompute(int rules) {
    return std::min({secondsToPrecompute(rules), secondsToPrecompute(rules), secondsToPrecompute(rules)});
}

TEST(precomputeScaling, IsLinearInTheNumberOfRules) {
    const double few = bestSecondsToPrecompute(1000);
    const double many = bestSecondsToPrecompute(16000);
    EXPECT_LT(many, 64 * few + 0.01) << few << " s against " << many << " s";
}
