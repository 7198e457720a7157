// SPDX-License-Identifier: MIT
#ifndef QXQR_QUERYCOMMAND_HPP
#define QXQR_QUERYCOMMAND_HPP

#include "FileCommand.hpp"

#include <string>

namespace qxqr {

// qxqr query SCRIPT... -- FILE...: the three answers of the rule set for
// each file: excluded, pruned, and the files its include rules add.
class QueryCommand : public FileCommand {
public:
    explicit QueryCommand(CommandLine& qxqr);

private:
    nlohmann::json jsonAnswer(QuorelScript::Rules& rules, const std::string& file) override;
    std::string textAnswer(QuorelScript::Rules& rules, const std::string& file) override;

    bool explain = false;
};

} // namespace qxqr

#endif
