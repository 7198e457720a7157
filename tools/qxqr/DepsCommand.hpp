// SPDX-License-Identifier: MIT
#ifndef QXQR_DEPSCOMMAND_HPP
#define QXQR_DEPSCOMMAND_HPP

#include "Configuration.hpp"
#include "ScriptsCommand.hpp"

#include <string>

namespace qxqr {

// qxqr deps [SCRIPT...] -- FILE...: the shared libraries that each ELF
// file needs, found as the dynamic loader finds them, with the rules
// deciding what is left out, what is not looked into and what comes along.
class DepsCommand : public ScriptsCommand {
public:
    explicit DepsCommand(CommandLine& qxqr);
    Result run(OperandReader& starts) override;

private:
    std::string libraryPath() const;

    Configuration configuration;
    bool explain = false;
    std::string givenLibraryPath;
    OptionDeclaration libraryPathOption;
    std::string sysroot;
    std::string copyTo;
    OptionDeclaration copyToOption;
    bool allowMissing = false;
};

} // namespace qxqr

#endif
