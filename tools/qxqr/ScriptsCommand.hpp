// SPDX-License-Identifier: MIT
#ifndef QXQR_SCRIPTSCOMMAND_HPP
#define QXQR_SCRIPTSCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// A command that reads its rules from SCRIPT... operands: its subcommand,
// with the operand declared before any option, the scripts given, and the
// format of its answer, whose option each command declares where its help
// shows it.
class ScriptsCommand : public Command {
public:
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    const char* operandName() const override { return operands; }

protected:
    // `operands` names the words after "--", if the command takes them (see
    // Command). At least one script unless `scriptsOptional`.
    ScriptsCommand(CommandLine& qxqr, const std::string& name, const std::string& description,
                   const char* operands = nullptr, bool scriptsOptional = false);

    Subcommand command;
    std::vector<std::string> scripts;
    OutputFormat format;

private:
    const char* operands;
};

} // namespace qxqr

#endif
