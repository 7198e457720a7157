// SPDX-License-Identifier: MIT
// qxqr: checks, queries and walks rules scripts through the library's public
// interface, as any host would.

#include "Arguments.hpp"
#include "CheckCommand.hpp"
#include "Command.hpp"
#include "CommandLine.hpp"
#include "LintCommand.hpp"
#include "OperandReader.hpp"
#include "QueryCommand.hpp"
#include "StandardOutput.hpp"
#include "TraceCommand.hpp"
#include "WalkCommand.hpp"
#include "WhyCommand.hpp"
#ifdef QXQR_WITH_DEPS
#include "DepsCommand.hpp"
#endif

#include <qxqrscript/version.hpp>

#include <algorithm>
#include <iostream>
#include <optional>

namespace {

using namespace qxqr;

// The tool's version is that of the headers it was built with; the
// library's is that of the one loaded, which may be a later one.
std::string versionText() {
    return "qxqr " + std::to_string(QXQRSCRIPT_VERSION_MAJOR) + "." + std::to_string(QXQRSCRIPT_VERSION_MINOR) + "." +
           std::to_string(QXQRSCRIPT_VERSION_PATCH) + "\n" + "libqxqrscript " + libqxqrscript_version + " (built " +
           libqxqrscript_build_date + ")";
}

// Standard input is read once: it can give one script, or the list of
// files, but not two of these.
void requireStandardInputOnce(Command& command, const Arguments& arguments) {
    const std::vector<std::string> scripts = command.scriptOperands();
    const auto scriptsFromIt = std::count(scripts.begin(), scripts.end(), "-");
    if (scriptsFromIt > 1)
        throw UsageError(command.subcommand().name() + ": '-' can be given as a SCRIPT only once");
    const char* operandName = command.operandName();
    const bool operandsFromIt = std::count(arguments.operands.begin(), arguments.operands.end(), "-") > 0;
    if (scriptsFromIt > 0 && operandName && operandsFromIt)
        throw UsageError(command.subcommand().name() + ": '-' can be a SCRIPT or a " + operandName + ", not both");
}

// A command line that the argument parser accepted can still lack the
// words after "--", or have them where the command takes none.
Result runCommand(Command& command, const Arguments& arguments) {
    requireStandardInputOnce(command, arguments);
    const char* operandName = command.operandName();
    if (!operandName && arguments.separated)
        throw UsageError(command.subcommand().name() + ": '--' is not expected");
    if (operandName && arguments.operands.empty())
        throw UsageError(command.subcommand().name() + ": no " + operandName + " given after '--'");
    OperandReader operands(arguments.operands, std::cin);
    return command.run(operands);
}

Command& selectedCommand(const std::vector<Command*>& commands) {
    for (Command* command : commands)
        if (command->subcommand().selected())
            return *command;
    throw std::logic_error("no command selected"); // require_subcommand(1) rules this out
}

// What a command built of its answer (a streamed answer is already out),
// then its message. An answer that cannot be written out (a full disk, say)
// ends the tool with an error, never with a silent success; once writing
// has failed, only the error follows.
int write(const Result& result) {
    try {
        if (!result.out.empty())
            writeStandardOutput(result.out);
    } catch (const Failure& failure) {
        std::cerr << failure.what() << std::flush;
        return 1;
    }
    std::cerr << result.err << std::flush;
    return result.status;
}

} // namespace

int main(int argc, char** argv) {
    Arguments arguments = splitAtSeparator(argc, argv);

    CommandLine qxqr("Check, query, walk, explain and lint rules scripts, and find what programs need under them.",
                     versionText());
    CheckCommand check(qxqr);
    QueryCommand query(qxqr);
    WalkCommand walk(qxqr);
    TraceCommand trace(qxqr);
    WhyCommand why(qxqr);
    LintCommand lint(qxqr);
    std::vector<Command*> commands{&check, &query, &walk, &trace, &why, &lint};
#ifdef QXQR_WITH_DEPS
    DepsCommand deps(qxqr);
    commands.push_back(&deps);
#endif

    if (std::optional<Result> answered = qxqr.parse(arguments.parsed))
        return write(*answered);

    try {
        return write(runCommand(selectedCommand(commands), arguments));
    } catch (const UsageError& error) {
        return write({"", qxqr.usageMessage(error.what()), usageStatus});
    } catch (const Failure& failure) {
        return write({"", failure.what(), 1});
    } catch (const std::exception& error) {
        return write({"", std::string("qxqr: ") + error.what() + "\n", 1});
    }
}
