// SPDX-License-Identifier: MIT
#include "TraceCommand.hpp"

#include "ScriptLoader.hpp"
#include "StreamCapture.hpp"

namespace qxqr {

TraceCommand::TraceCommand(CommandLine& qxqr)
    : command(qxqr, "trace", "Parse a script with the library's debug trace on") {
    command.option("SCRIPT", script, "the rules script").typeName("").required();
}

Result TraceCommand::run(OperandReader&) {
    Result result;
    StreamCapture trace;
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
