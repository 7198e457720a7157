// SPDX-License-Identifier: MIT
#ifndef QXQR_CHECKCOMMAND_HPP
#define QXQR_CHECKCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr check SCRIPT...: parses the scripts into one rule set and prints it.
class CheckCommand : public Command {
public:
    explicit CheckCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    Result run(OperandReader& operands) override;

private:
    Subcommand command;
    std::vector<std::string> scripts;
    bool quiet = false;
    OutputFormat format;
};

} // namespace qxqr

#endif
