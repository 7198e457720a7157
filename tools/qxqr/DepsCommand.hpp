// SPDX-License-Identifier: MIT
#ifndef QXQR_DEPSCOMMAND_HPP
#define QXQR_DEPSCOMMAND_HPP

#include "Command.hpp"
#include "CommandLine.hpp"
#include "Configuration.hpp"
#include "OutputFormat.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr deps [SCRIPT...] -- FILE...: the shared libraries that each ELF
// file needs, found as the dynamic loader finds them, with the rules
// deciding what is left out, what is not looked into and what comes along.
class DepsCommand : public Command {
public:
    explicit DepsCommand(CommandLine& qxqr);
    const Subcommand& subcommand() const override { return command; }
    std::vector<std::string> scriptOperands() const override { return scripts; }
    const char* operandName() const override { return "FILE"; }
    Result run(OperandReader& starts) override;

private:
    std::string libraryPath() const;

    Subcommand command;
    std::vector<std::string> scripts;
    Configuration configuration;
    bool explain = false;
    OutputFormat format;
    std::string givenLibraryPath;
    OptionDeclaration libraryPathOption;
    std::string sysroot;
    std::string copyTo;
    OptionDeclaration copyToOption;
    bool allowMissing = false;
};

} // namespace qxqr

#endif
