// SPDX-License-Identifier: MIT
#ifndef QXQR_CHECKCOMMAND_HPP
#define QXQR_CHECKCOMMAND_HPP

#include "Command.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr check SCRIPT...: parses the scripts into one rule set and prints it.
class CheckCommand : public Command {
public:
    explicit CheckCommand(CLI::App& qxqr);
    CLI::App& app() override { return *command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    Result run(OperandReader& operands) override;

private:
    CLI::App* command;
    std::vector<std::string> scripts;
    bool quiet = false;
    OutputFormat format;
};

} // namespace qxqr

#endif
