// SPDX-License-Identifier: MIT
#include "TraceCommand.hpp"

#include "ScriptLoader.hpp"
#include "StandardOutputCapture.hpp"

#include <CLI/CLI.hpp>

namespace qxqr {

TraceCommand::TraceCommand(CLI::App& qxqr)
    : command(qxqr.add_subcommand("trace", "Parse a script with the library's debug trace on"))
{
    command->add_option("SCRIPT", script, "the rules script")->type_name("")->required();
}

Result TraceCommand::run(OperandReader&)
{
    Result result;
    StandardOutputCapture trace;
    try {
        loadRules({script}, true);
    } catch (const Failure& failure) {
        // The trace up to the error is what shows where the script went wrong.
        result.err = failure.what();
        result.status = 1;
    }
    result.out = trace.text();
    return result;
}

} // namespace qxqr
