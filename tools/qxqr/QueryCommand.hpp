// SPDX-License-Identifier: MIT
#ifndef QXQR_QUERYCOMMAND_HPP
#define QXQR_QUERYCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "Configuration.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr query SCRIPT... -- FILE...: the three answers of the rule set for
// each file: excluded, pruned, and the files its include rules add.
class QueryCommand : public Command {
public:
    explicit QueryCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    const char* operandName() const override { return "FILE"; }
    Result run(OperandReader& files) override;

private:
    Subcommand command;
    std::vector<std::string> scripts;
    Configuration configuration;
    std::string caller;
    OptionDeclaration callerOption;
    bool explain = false;
    OutputFormat format;
};

} // namespace qxqr

#endif
