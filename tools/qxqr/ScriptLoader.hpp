// SPDX-License-Identifier: MIT
#ifndef QXQR_SCRIPTLOADER_HPP
#define QXQR_SCRIPTLOADER_HPP

#include "CommandLine.hpp"

#include <qxqrscript/Rules.hpp>

#include <memory>
#include <string>
#include <vector>

namespace qxqr {

// Parses the scripts, in order, into one rule set: the first becomes the
// rule set, each further one is appended to it. A script "-" is standard
// input, named "<standard input>" in syntax errors and rule texts. Throws
// Failure with "qxqr: cannot read 'X': <reason>" for a script that cannot
// be read, and with the library's own report for a syntax error, followed by a
// hint when the failing line is a known pitfall (SyntaxHint.hpp). With
// `verbose` the library traces on standard output how it understood each
// line. With `texts`, the tool reads every script itself and keeps its text
// there, in order, under the name the library knows it by.
struct ScriptText {
    std::string name;
    std::string text;
};
using ScriptTexts = std::vector<ScriptText>;
std::unique_ptr<QuorelScript::Rules> loadRules(const std::vector<std::string>& scripts, bool verbose = false,
                                               ScriptTexts* texts = nullptr);

// The SCRIPT... operands of a command that reads scripts into one rule set;
// at least one unless `optional`.
void addScriptsOperand(Subcommand& command, std::vector<std::string>& scripts, bool optional = false);

} // namespace qxqr

#endif
