// SPDX-License-Identifier: MIT
// Merging and simplifying many rules costs time in proportion to their
// number, whatever the simplification has to do with them: sixteen times
// the rules may not take more than sixty-four times as long (a quadratic
// pass would take about 256 times).
#include "BestTime.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

// `count` exclude rules of the form `shape`, with N in it standing for the
// rule's number.
std::string manyRules(const std::string& shape, int count) {
    std::string script;
    for (int i = 0; i < count; ++i) {
        std::string rule = shape;
        for (std::size_t at = rule.find('N'); at != std::string::npos; at = rule.find('N', at))
            rule.replace(at, 1, std::to_string(i));
        script += rule + "\n";
    }
    return script;
}

double secondsToPrecompute(const std::string& shape, int rules) {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> parsed(parser.parse(manyRules(shape, rules).c_str()));
    const double seconds = secondsOf([&parsed] { parsed->precompute(); });
    EXPECT_TRUE(parsed->isExcluded("/p/7.c", nullptr, nullptr)) << shape;
    EXPECT_FALSE(parsed->isExcluded("/p/x.c", nullptr, nullptr)) << shape;
    return seconds;
}

double bestSecondsToPrecompute(const std::string& shape, int rules) {
    return bestOf(3, [&] { return secondsToPrecompute(shape, rules); });
}

void expectLinear(const std::string& shape, int few) {
    const double fewSeconds = bestSecondsToPrecompute(shape, few);
    const double manySeconds = bestSecondsToPrecompute(shape, 16 * few);
    EXPECT_LT(manySeconds, 64 * fewSeconds + 0.01)
        << shape << ": " << fewSeconds << " s against " << manySeconds << " s";
}

} // namespace

// Merging the rules into one, and flattening the ors into it.
TEST(ParsedRulesPrecomputeScaling, IsLinearInTheNumberOfRules) {
    expectLinear("exclude if $file == /p/N.c or $ext == .oN", 1000);
}

// Pushing every negation down to the tests (not of an and is an or of nots).
TEST(ParsedRulesPrecomputeScaling, IsLinearInTheNegatedRules) {
    expectLinear("exclude if not ($file != /p/N.c and $ext != .oN)", 500);
}

// Dropping the literals that decide nothing from the merged or.
TEST(ParsedRulesPrecomputeScaling, IsLinearInTheRulesWithLiterals) {
    expectLinear("exclude if false or $file == /p/N.c or false", 500);
}
