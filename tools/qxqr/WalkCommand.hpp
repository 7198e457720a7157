// SPDX-License-Identifier: MIT
#ifndef QXQR_WALKCOMMAND_HPP
#define QXQR_WALKCOMMAND_HPP

#include "Configuration.hpp"
#include "ScriptsCommand.hpp"
#include "Walk.hpp"

namespace qxqr {

// qxqr walk SCRIPT... -- START...: follows the include rules from the start
// files as a dependency-analysis host would, and tells each file's fate.
class WalkCommand : public ScriptsCommand {
public:
    explicit WalkCommand(CommandLine& qxqr);
    Result run(OperandReader& starts) override;

private:
    Configuration configuration;
    bool explain = false;
    bool noProgress = false;
    WalkLimits limits;
};

} // namespace qxqr

#endif
