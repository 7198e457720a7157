// SPDX-License-Identifier: MIT
#ifndef QXQR_LINTCOMMAND_HPP
#define QXQR_LINTCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr lint SCRIPT...: warns about what a script says that its author
// probably did not mean, one line per warning in the form compilers use.
class LintCommand : public Command {
public:
    explicit LintCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    Result run(OperandReader& operands) override;

private:
    Subcommand command;
    std::vector<std::string> scripts;
    std::vector<std::string> assignments;
    std::vector<std::string> disabled;
    std::vector<std::string> allowed;
    bool werror = false;
    OutputFormat format;
};

} // namespace qxqr

#endif
