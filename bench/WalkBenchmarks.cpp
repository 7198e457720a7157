// SPDX-License-Identifier: MIT
// `qxqr walk` over a tree of 10,002 files and one of 100,002 beside `find`
// listing the same trees, all run as programs, their output written to files. Each is timed
// by the processor time it used; the wall-clock time is a counter.
#include "Benchmarks.hpp"
#include "Names.hpp"
#include "ProgramTiming.hpp"
#include "WalkTree.hpp"
#include "Workload.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace qxqr::bench {

namespace {

// Where the trees, the walk's script and the programs' output go.
const std::string workFolder = QXQR_BENCH_WORK_DIR;
const std::string output = workFolder + "/walk-output.txt";

std::string treeOf(std::size_t folders) {
    return workFolder + "/walk-tree-" + std::to_string(walkTreeFilesIn(folders));
}

// The 10-rule workload's rules, and the ones that make the walk a
// dependency analysis of the tree: main.c brings every source, every
// source its header, and headers are not looked into.
std::string walkScript() {
    return workload(10).script + "% the walk over the tree\n"
                                 "prune if $ext == .h\n"
                                 "include $cwd/src/*/*.c if $file == $cwd/main.c\n"
                                 "include $dir/$name.h if $ext == .c\n";
}

std::size_t linesOf(const std::string& file) {
    std::ifstream in(file);
    return static_cast<std::size_t>(
        std::count(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>(), '\n'));
}

// Runs `command` once per iteration over the tree of `folders` folders;
// reports how many lines of output it wrote, less `summaryLines`, as the
// files it met.
void runProgram(benchmark::State& state, std::size_t folders, const std::vector<std::string>& command,
                std::size_t summaryLines) {
    makeWalkTree(treeOf(folders), folders);
    if (timeProgramRuns(state, command, output))
        state.counters["files"] = static_cast<double>(linesOf(output) - summaryLines);
}

void qxqrWalk(benchmark::State& state, std::size_t folders) {
    const std::string tree = treeOf(folders);
    const std::string script = workFolder + "/walk-tree.rules";
    std::ofstream(script) << walkScript();
    runProgram(state, folders,
               {QXQR_BENCH_TOOL, "walk", "--no-progress", "--precompute", "--root", "/opt/vantor", "--cwd", tree,
                script, "--", tree + "/main.c"},
               1);
}

void findFiles(benchmark::State& state, std::size_t folders) {
    runProgram(state, folders, {"find", treeOf(folders), "-type", "f"}, 0);
}

} // namespace

void registerWalkBenchmarks() {
    for (std::size_t folders : walkTreeFolderCounts) {
        const std::size_t files = walkTreeFilesIn(folders);
        benchmark::RegisterBenchmark(benchmarkName("walk", "qxqr", files).c_str(), qxqrWalk, folders)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(2);
        benchmark::RegisterBenchmark(benchmarkName("walk", "find", files).c_str(), findFiles, folders)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(5);
    }
}

} // namespace qxqr::bench
