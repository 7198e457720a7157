// SPDX-License-Identifier: MIT
#ifndef QXQR_WHYCOMMAND_HPP
#define QXQR_WHYCOMMAND_HPP

#include "Colour.hpp"
#include "Command.hpp"
#include "CommandLine.hpp"
#include "Configuration.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr why SCRIPT... -- FILE...: for each file, the three questions with
// every rule's condition evaluated as the query evaluates it: which part
// held, what the variables stood for, which element of an `in` matched,
// what each `exists` asked and was told, and what each include path became.
class WhyCommand : public Command {
public:
    explicit WhyCommand(CommandLine& qxqr);
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
    OutputFormat format;
    Colour colour;
};

} // namespace qxqr

#endif
