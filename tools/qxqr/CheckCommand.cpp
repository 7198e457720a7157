// SPDX-License-Identifier: MIT
#include "CheckCommand.hpp"

#include "PrintedRules.hpp"
#include "ScriptLoader.hpp"

#include <sstream>

namespace qxqr {

CheckCommand::CheckCommand(CommandLine& qxqr)
    : ScriptsCommand(qxqr, "check", "Parse the scripts into one rule set and print it") {
    command.flag("-q,--quiet", quiet, "print nothing; only the exit status tells");
    format.addOption(command);
}

Result CheckCommand::run(OperandReader&) {
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    Result result;
    if (quiet)
        return result;
    std::ostringstream printed;
    printed << rules.get();
    if (format.isJson()) {
        nlohmann::json document = readPrintedRules(printed.str());
        document["scripts"] = scripts;
        result.out = jsonDocument(document);
    } else {
        result.out = printed.str();
    }
    return result;
}

} // namespace qxqr
