// SPDX-License-Identifier: MIT
#include "DepsCommand.hpp"

#include "DependencyOutput.hpp"
#include "DependencyWalk.hpp"
#include "ElfFiles.hpp"
#include "LibraryCopy.hpp"
#include "LibrarySearch.hpp"
#include "LoaderConfiguration.hpp"
#include "OperandReader.hpp"
#include "QuotedName.hpp"
#include "ScriptLoader.hpp"

#include <cstdlib>
#include <optional>

namespace qxqr {

namespace {

std::unique_ptr<DependencyOutput> outputFor(const std::string& format, bool explain) {
    if (format == "json")
        return jsonOutput();
    if (format == "paths")
        return pathsOutput();
    if (format == "dot")
        return dotOutput();
    return textOutput(explain);
}

// "/" and "" both mean the running system's own root.
std::string withoutTrailingSlashes(std::string directory) {
    while (!directory.empty() && directory.back() == '/')
        directory.pop_back();
    return directory;
}

} // namespace

DepsCommand::DepsCommand(CommandLine& qxqr)
    : ScriptsCommand(qxqr, "deps", "Find the shared libraries that programs need and tell each one's fate", "FILE",
                     /*scriptsOptional=*/true) {
    configuration.addOptions(command);
    command.flag("--explain", explain, "show the rule that excluded or pruned a file");
    format.addOption(command, {"text", "json", "paths", "dot"});
    libraryPathOption = command
                            .option("--ld-library-path", givenLibraryPath,
                                    "the directories LD_LIBRARY_PATH gives the loader (default: the environment's)")
                            .typeName("LIST");
    command.option("--sysroot", sysroot, "find everything under DIR, as a system installed there would")
        .typeName("DIR");
    copyToOption =
        command.option("--copy-to", copyTo, "copy every kept library into DIR, named by its soname").typeName("DIR");
    command.flag("--allow-missing", allowMissing, "a library that is not found is no failure");
    command.footer("The files follow '--': qxqr deps [OPTIONS] [SCRIPT...] -- FILE...\n"
                   "A FILE of '-' reads file names from standard input, one a line.\n"
                   "Without a SCRIPT, every file is kept and followed. Nothing is executed.");
}

std::string DepsCommand::libraryPath() const {
    if (libraryPathOption.given())
        return givenLibraryPath;
    const char* environment = std::getenv("LD_LIBRARY_PATH");
    return environment ? environment : "";
}

Result DepsCommand::run(OperandReader& starts) {
    std::unique_ptr<QuorelScript::Rules> rules;
    if (!scripts.empty()) {
        rules = loadRules(scripts);
        configuration.apply(*rules);
    }
    std::optional<LibraryCopy> copy;
    if (copyToOption.given())
        copy.emplace(copyTo);
    const std::string root = withoutTrailingSlashes(sysroot);
    ElfFiles files(root);
    LibrarySearch search({root, libraryPath(), configuredDirectories(root)}, files);
    DependencyWalk walk(rules.get(), search, files, configuration.valuesHoldVariables());
    std::unique_ptr<DependencyOutput> output = outputFor(format.chosen(), explain);

    DependencyCounts counts;
    std::string problems;
    DependencyReport report{[&](const Dependency& dependency) {
                                output->met(dependency);
                                counts.count(dependency);
                                if (copy)
                                    problems += copy->take(dependency);
                            },
                            [&](const std::string& file, const std::string& reason) {
                                problems += "qxqr: " + quotedName(file) + ": " + reason + "\n";
                            }};
    std::string start;
    while (starts.next(start))
        walk.walkFrom(start, report);
    output->finish(counts);

    std::string messages = output->messages() + problems;
    bool failed = !problems.empty() || (counts.notFound() > 0 && !allowMissing);
    return {"", messages, failed ? 1 : 0};
}

} // namespace qxqr
