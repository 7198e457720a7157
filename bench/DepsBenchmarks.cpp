// SPDX-License-Identifier: MIT
// `qxqr deps` over every dynamically linked program of /usr/bin beside the
// system's loader listing the same programs (ldd), both run as programs,
// their output written to files, each timed by the processor time it used
// (the loader's runs included, which ldd starts one per program); the
// wall-clock time is a counter. Then the rules' share: `qxqr deps` with
// the bundling example, precomputed, and the questions that walk asks the
// rules, asked in this process alone.
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
#include <set>

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

// The rules of a walk, each question noted as the walk asks it; the
// answers are the rules' own.
class NotingRules : public QuorelScript::Rules {
public:
    NotingRules(QuorelScript::Rules& rules, std::set<Question>& asked) : rules(rules), asked(asked) {}

    bool isExcluded(const char* file, const char* reserved, const char* caller) override {
        asked.emplace(file, caller ? std::optional<std::string>(caller) : std::nullopt);
        return rules.isExcluded(file, reserved, caller);
    }
    bool isPruned(const char* file, const char* reserved, const char* caller) override {
        return rules.isPruned(file, reserved, caller);
    }
    void getIncludes(const char* file, const char* reserved, QuorelRules::Includer& includer) override {
        rules.getIncludes(file, reserved, includer);
    }
    void setVantorRoot(const char* root) override { rules.setVantorRoot(root); }
    void setCwd(const char* dir) override { rules.setCwd(dir); }
    int setCwdFromProcess() override { return rules.setCwdFromProcess(); }
    void bindVariable(const char* name, const char* value) override { rules.bindVariable(name, value); }
    void precompute() override { rules.precompute(); }
    std::ostream& print(std::ostream& os) const override { return rules.print(os); }
    const std::string& getLastMatchText() const override { return rules.getLastMatchText(); }

private:
    QuorelScript::Rules& rules;
    std::set<Question>& asked;
};

// Every question the walk of the programs asks the rules, once: each file
// met, with the file that led to it, and again with each further caller
// while no caller has kept it.
std::vector<Question> questionsAsked(QuorelScript::Rules& rules) {
    std::set<Question> asked;
    NotingRules noting(rules, asked);
    ElfFiles files;
    const char* libraryPath = std::getenv("LD_LIBRARY_PATH");
    LibrarySearch search({"", libraryPath ? libraryPath : "", configuredDirectories("")}, files);
    DependencyWalk walk(&noting, search, files);
    DependencyReport report{[](const Dependency&) {}, [](const std::string&, const std::string&) {}};
    for (const std::string& program : programs())
        walk.walkFrom(program, report);
    return {asked.begin(), asked.end()};
}

// The rules' own share of a walk: the bundling rules, precomputed, asked
// in this process every question of the walk of the programs, as the walk
// asks them (isExcluded, isPruned, then getIncludes for a kept file).
void bundleRulesQuestions(benchmark::State& state) {
    QuorelScript::FileReader reader;
    std::unique_ptr<QuorelScript::Rules> rules(reader.read(QXQR_BENCH_EXAMPLES_DIR "/bundle.rules"));
    if (!rules) {
        state.SkipWithError("cannot read the bundling rules");
        return;
    }
    rules->setVantorRoot("/opt/app");
    rules->setCwdFromProcess();
    rules->precompute();
    const auto questions = questionsAsked(*rules);
    for (auto _ : state) {
        for (const auto& [file, caller] : questions)
            benchmark::DoNotOptimize(visit(*rules, file, caller ? &*caller : nullptr));
    }
    state.counters["questions"] = static_cast<double>(questions.size());
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

std::string depsBenchmarkName(const std::string& on) {
    return benchmarkName("deps", on, programs().size());
}

void registerDepsBenchmarks() {
    registerOne("qxqr", qxqrDeps, 5);
    registerOne("qxqrBundleRules", qxqrDepsWithRules, 5);
    registerOne("ldd", loaderList, 1);
    benchmark::RegisterBenchmark(depsBenchmarkName("bundleRulesQuestions").c_str(), bundleRulesQuestions)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(3)
        ->DisplayAggregatesOnly();
}

} // namespace qxqr::bench
