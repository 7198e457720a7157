// SPDX-License-Identifier: MIT
#ifndef QXQR_FILECOMMAND_HPP
#define QXQR_FILECOMMAND_HPP

#include "CommandLine.hpp"
#include "Configuration.hpp"
#include "ScriptsCommand.hpp"

#include <nlohmann/json.hpp>

#include <string>

namespace QuorelScript {
class Rules;
}

namespace qxqr {

// A command that asks the configured rules about each FILE after "--", as
// a host asks about each file it meets, with --caller as the file that
// refers to it, and streams its answer file by file: query and why. The
// options it declares come right after the scripts; the command declares
// its own after them.
class FileCommand : public ScriptsCommand {
public:
    Result run(OperandReader& files) final;

protected:
    FileCommand(CommandLine& qxqr, const std::string& name, const std::string& description);

    // Sees the rules as the scripts made them, before the configuration is
    // bound into them; does nothing unless a command needs that.
    virtual void rulesLoaded(const QuorelScript::Rules& rules);
    // One file's part of the answer, as a JSON item or as text.
    virtual nlohmann::json jsonAnswer(QuorelScript::Rules& rules, const std::string& file) = 0;
    virtual std::string textAnswer(QuorelScript::Rules& rules, const std::string& file) = 0;

    // The caller the questions are asked with: the --caller given, or null.
    const char* callerOrNull() const;

    Configuration configuration;

private:
    std::string caller;
    OptionDeclaration callerOption;
};

} // namespace qxqr

#endif
