// SPDX-License-Identifier: MIT
// `qxqr deps` over every dynamically linked program of /usr/bin beside the
// system's loader listing the same programs (ldd), both run as programs,
// their output written to files, each timed by the processor time it used
// (the loader's runs included, which ldd starts one per program); the
// wall-clock time is a counter. Then the rules' share: `qxqr deps` with
// the bundling example, precomputed, run beside the runs without rules;
// the same walk in this process, with and without the rules, in turns;
// and every question that walk asks the rules, asked again in this
// process alone.
#include "Benchmarks.hpp"
#include "Names.hpp"
#include "ProgramTiming.hpp"

#include "DependencyWalk.hpp"
#include "ElfObject.hpp"
#include "LoaderConfiguration.hpp"

#include <qxqrscript/FileReader.hpp>
#include <qxqrscript/Rules.hpp>

#include <benchmark/benchmark.h>

#include <elf.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <vector>

namespace qxqr::bench {

namespace {

const std::string workFolder = QXQR_BENCH_WORK_DIR;
const std::string output = workFolder + "/deps-output.txt";
const std::string programFolder = "/usr/bin";

bool isDynamicProgram(const std::filesystem::path& path) {
    if (access(path.c_str(), X_OK) != 0)
        return false;
    try {
        ElfObject object = readElfFile(path.string());
        return object.interpreter && (object.type == ET_EXEC || object.type == ET_DYN);
    } catch (const ElfError&) {
        return false;
    }
}

// Every dynamically linked program of /usr/bin, symbolic links included,
// in name order; found once.
const std::vector<std::string>& programs() {
    static const std::vector<std::string> found = [] {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(programFolder))
            if (isDynamicProgram(entry.path()))
                names.push_back(entry.path().string());
        std::sort(names.begin(), names.end());
        return names;
    }();
    return found;
}

void runProgram(benchmark::State& state, std::vector<std::string> command) {
    command.insert(command.end(), programs().begin(), programs().end());
    if (timeProgramRuns(state, command, output))
        state.counters["programs"] = static_cast<double>(programs().size());
}

void qxqrDeps(benchmark::State& state) {
    runProgram(state, {QXQR_BENCH_TOOL, "deps", "--format", "paths", "--allow-missing", "--"});
}

void qxqrDepsWithRules(benchmark::State& state) {
    runProgram(state, {QXQR_BENCH_TOOL, "deps", "--format", "paths", "--allow-missing", "--precompute", "--root",
                       "/opt/app", QXQR_BENCH_EXAMPLES_DIR "/bundle.rules", "--"});
}

using Question = std::pair<std::string, std::optional<std::string>>; // a file, and the file that led to it

// Every question the walk of the programs asks the rules, as `qxqr deps`
// walks them: each once, since the walk remembers the verdicts.
std::vector<Question> questionsAsked(QuorelScript::Rules& rules) {
    ElfFiles files;
    const char* libraryPath = std::getenv("LD_LIBRARY_PATH");
    LibrarySearch search({"", libraryPath ? libraryPath : "", configuredDirectories("")}, files);
    DependencyWalk walk(&rules, search, files);
    DependencyReport report{[](const Dependency&) {}, [](const std::string&, const std::string&) {}};
    for (const std::string& program : programs())
        walk.walkFrom(program, report);
    return walk.questionsAsked();
}

std::unique_ptr<QuorelScript::Rules> bundleRules() {
    QuorelScript::FileReader reader;
    std::unique_ptr<QuorelScript::Rules> rules(reader.read(QXQR_BENCH_EXAMPLES_DIR "/bundle.rules"));
    if (rules) {
        rules->setVantorRoot("/opt/app");
        rules->setCwdFromProcess();
        rules->precompute();
    }
    return rules;
}

// The rules' own share of a walk: the bundling rules, precomputed, asked
// in this process every question that the walk of the programs asks them
// (isExcluded, isPruned, then getIncludes for a kept file).
void bundleRulesQuestions(benchmark::State& state) {
    std::unique_ptr<QuorelScript::Rules> rules = bundleRules();
    if (!rules) {
        state.SkipWithError("cannot read the bundling rules");
        return;
    }
    const auto questions = questionsAsked(*rules);
    for (auto _ : state) {
        for (const auto& [file, caller] : questions)
            benchmark::DoNotOptimize(visit(*rules, file, caller ? &*caller : nullptr));
    }
    state.counters["questions"] = static_cast<double>(questions.size());
}

// The walk of the programs in this process, as `qxqr deps` walks them
// (every file read anew, the verdicts remembered anew), with `rules` or,
// if null, without: the two side by side tell what the rules add to the
// whole walk, with everything they cause (the verdicts, remembered and
// given again, the rules asked again of a file excluded for one caller).
void walkPrograms(benchmark::State& state, QuorelScript::Rules* rules) {
    const char* libraryPath = std::getenv("LD_LIBRARY_PATH");
    std::size_t met = 0;
    std::size_t asked = 0;
    for (auto _ : state) {
        ElfFiles files;
        LibrarySearch search({"", libraryPath ? libraryPath : "", configuredDirectories("")}, files);
        DependencyWalk walk(rules, search, files);
        DependencyReport report{[&](const Dependency&) { ++met; }, [](const std::string&, const std::string&) {}};
        for (const std::string& program : programs())
            walk.walkFrom(program, report);
        state.PauseTiming();
        asked += walk.questionsAsked().size();
        state.ResumeTiming();
    }
    state.counters["met"] = static_cast<double>(met) / static_cast<double>(state.iterations());
    state.counters["questions"] = static_cast<double>(asked) / static_cast<double>(state.iterations());
}

void walkWithoutRules(benchmark::State& state) {
    walkPrograms(state, nullptr);
}

void walkWithBundleRules(benchmark::State& state) {
    std::unique_ptr<QuorelScript::Rules> rules = bundleRules();
    if (!rules) {
        state.SkipWithError("cannot read the bundling rules");
        return;
    }
    walkPrograms(state, rules.get());
}

void loaderList(benchmark::State& state) {
    runProgram(state, {"ldd"});
}

void registerOne(const std::string& on, void (*function)(benchmark::State&), int iterations) {
    benchmark::RegisterBenchmark(benchmarkName("deps", on, programs().size()).c_str(), function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(iterations)
        ->Repetitions(3)
        ->DisplayAggregatesOnly();
}

} // namespace

std::string walkRoundName(const std::string& walk, int round) {
    return walk + "Round" + std::to_string(round);
}

std::string depsBenchmarkName(const std::string& on) {
    return benchmarkName("deps", on, programs().size());
}

void registerDepsBenchmarks() {
    registerOne("qxqr", qxqrDeps, 5);
    registerOne("qxqrBundleRules", qxqrDepsWithRules, 5);
    registerOne("qxqrAgain", qxqrDeps, 5); // the yardstick again, after the runs with the rules
    registerOne("ldd", loaderList, 1);
    benchmark::RegisterBenchmark(depsBenchmarkName("bundleRulesQuestions").c_str(), bundleRulesQuestions)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(3)
        ->DisplayAggregatesOnly();
    // Alternated, so that a change in the machine's load falls on both;
    // each round has names of its own, for its target.
    for (int round = 1; round <= walkRounds; ++round) {
        benchmark::RegisterBenchmark(depsBenchmarkName(walkRoundName("walk", round)).c_str(), walkWithoutRules)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(10);
        benchmark::RegisterBenchmark(depsBenchmarkName(walkRoundName("walkBundleRules", round)).c_str(),
                                     walkWithBundleRules)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(10);
    }
}

} // namespace qxqr::bench
