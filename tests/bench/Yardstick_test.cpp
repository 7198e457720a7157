// SPDX-License-Identifier: MIT
// The yardstick against the library: for generated rule sets, as parsed and
// after precomputation, both must give the same answers to the same files.
#include "LibraryRules.hpp"
#include "RecordingIncluder.hpp"
#include "RuleCount.hpp"
#include "Workload.hpp"
#include "Yardstick.hpp"

#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace qxqr::bench;

namespace {

std::vector<std::string> libraryIncludes(QuorelScript::Rules& rules, const std::string& file) {
    RecordingIncluder collector;
    rules.getIncludes(file.c_str(), nullptr, collector);
    return collector.paths;
}

std::vector<std::string> yardstickIncludes(Yardstick& yardstick, const std::string& file) {
    std::vector<std::string> files;
    yardstick.getIncludes(file, [&](const char* path) { files.push_back(path); });
    return files;
}

std::size_t linesStartingWith(const std::string& text, const std::string& start) {
    std::istringstream lines(text);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);)
        count += line.rfind(start, 0) == 0;
    return count;
}

struct Sample {
    std::size_t ruleCount;
    std::size_t queries; // how many of the workload's files are asked about, to keep the test quick
    Preparation preparation;
};

std::string nameOf(const Sample& sample) {
    return std::to_string(sample.ruleCount) + "Rules" +
           (sample.preparation == Preparation::asParsed ? "AsParsed" : "Precomputed");
}

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << nameOf(sample) << ", " << sample.queries << " queries";
}

class AgreesWithLibrary : public ::testing::TestWithParam<Sample> {};

} // namespace

TEST_P(AgreesWithLibrary, OnEveryQuery) {
    const Sample sample = GetParam();
    const Workload& work = workload(sample.ruleCount);
    std::unique_ptr<QuorelScript::Rules> rules = libraryRules(work.script, work.settings, sample.preparation);
    Yardstick yardstick(work.rules, work.settings);
    for (std::size_t index = 0; index < sample.queries; ++index) {
        const std::string& file = work.queries[index];
        const char* caller = work.caller.c_str();
        ASSERT_EQ(yardstick.isExcluded(file), rules->isExcluded(file.c_str(), nullptr, caller)) << file;
        ASSERT_EQ(yardstick.isPruned(file), rules->isPruned(file.c_str(), nullptr, caller)) << file;
        ASSERT_EQ(yardstickIncludes(yardstick, file), libraryIncludes(*rules, file)) << file;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Workloads, AgreesWithLibrary,
    ::testing::Values(Sample{10, 2000, Preparation::asParsed}, Sample{10, 2000, Preparation::precomputed},
                      Sample{100, 500, Preparation::asParsed}, Sample{100, 500, Preparation::precomputed},
                      Sample{1000, 100, Preparation::asParsed}, Sample{1000, 100, Preparation::precomputed}),
    [](const ::testing::TestParamInfo<Sample>& info) { return nameOf(info.param); });

TEST(GeneratedScripts, ParseIntoEveryRuleOfTheModel) {
    for (std::size_t ruleCount : {10, 100, 1000, 10000}) {
        const Workload& work = workload(ruleCount);
        std::ostringstream printed;
        libraryRules(work.script, work.settings, Preparation::asParsed)->print(printed);
        EXPECT_EQ(countOf(work.rules, RuleKind::exclude), linesStartingWith(printed.str(), "\texclude if "));
        EXPECT_EQ(countOf(work.rules, RuleKind::prune), linesStartingWith(printed.str(), "\tprune if "));
        EXPECT_EQ(countOf(work.rules, RuleKind::include), linesStartingWith(printed.str(), "\tinclude "));
    }
}
