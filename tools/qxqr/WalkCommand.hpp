// SPDX-License-Identifier: MIT
#ifndef QXQR_WALKCOMMAND_HPP
#define QXQR_WALKCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "Configuration.hpp"
#include "OutputFormat.hpp"
#include "Walk.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr walk SCRIPT... -- START...: follows the include rules from the start
// files as a dependency-analysis host would, and tells each file's fate.
class WalkCommand : public Command {
public:
    explicit WalkCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    const char* operandName() const override { return "START"; }
    Result run(OperandReader& starts) override;

private:
    Subcommand command;
    std::vector<std::string> scripts;
    Configuration configuration;
    bool explain = false;
    bool noProgress = false;
    WalkLimits limits;
    OutputFormat format;
};

} // namespace qxqr

#endif
