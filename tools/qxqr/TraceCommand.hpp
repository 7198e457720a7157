// SPDX-License-Identifier: MIT
#ifndef QXQR_TRACECOMMAND_HPP
#define QXQR_TRACECOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"

namespace qxqr {

// qxqr trace SCRIPT: parses with the library's debug trace on, which shows
// how each condition was understood.
class TraceCommand : public Command {
public:
    explicit TraceCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return {script}; }
    Result run(OperandReader& operands) override;

private:
    Subcommand command;
    std::string script;
};

} // namespace qxqr

#endif
