// SPDX-License-Identifier: MIT
#include "ScriptsCommand.hpp"

#include "ScriptLoader.hpp"

namespace qxqr {

ScriptsCommand::ScriptsCommand(CommandLine& qxqr, const std::string& name, const std::string& description,
                               const char* operands, bool scriptsOptional)
    : command(qxqr, name, description), operands(operands) {
    addScriptsOperand(command, scripts, scriptsOptional);
}

} // namespace qxqr
