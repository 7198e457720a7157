// SPDX-License-Identifier: MIT
#ifndef QXQR_CHECKCOMMAND_HPP
#define QXQR_CHECKCOMMAND_HPP

#include "ScriptsCommand.hpp"

namespace qxqr {

// qxqr check SCRIPT...: parses the scripts into one rule set and prints it.
class CheckCommand : public ScriptsCommand {
public:
    explicit CheckCommand(CommandLine& qxqr);
    Result run(OperandReader& operands) override;

private:
    bool quiet = false;
};

} // namespace qxqr

#endif
