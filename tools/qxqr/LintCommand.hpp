// SPDX-License-Identifier: MIT
#ifndef QXQR_LINTCOMMAND_HPP
#define QXQR_LINTCOMMAND_HPP

#include "ScriptsCommand.hpp"

#include <string>
#include <vector>

namespace qxqr {

// qxqr lint SCRIPT...: warns about what a script says that its author
// probably did not mean, one line per warning in the form compilers use.
class LintCommand : public ScriptsCommand {
public:
    explicit LintCommand(CommandLine& qxqr);
    Result run(OperandReader& operands) override;

private:
    std::vector<std::string> assignments;
    std::vector<std::string> disabled;
    std::vector<std::string> allowed;
    bool werror = false;
};

} // namespace qxqr

#endif
