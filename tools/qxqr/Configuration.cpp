// SPDX-License-Identifier: MIT
#include "Configuration.hpp"

#include "Assignment.hpp"

#include <qxqrscript/Rules.hpp>

#include <filesystem>
#include <system_error>
#include <utility>

namespace qxqr {

void Configuration::addOptions(Subcommand& command) {
    rootOption =
        command.option("--root", root, "the installation root ($vantor; $toolbox is DIR/toolbox)").typeName("DIR");
    cwdOption =
        command.option("--cwd", cwd, "the directory that $cwd names (default: the current directory)").typeName("DIR");
    // One assignment an occurrence, so that the script after it stays a
    // script where the scripts may be none (deps).
    command.option("--set", assignments, "bind the variable NAME to VALUE in every condition (repeatable)")
        .typeName("NAME=VALUE")
        .oneValueEach()
        .check(checkAssignment);
    command.flag("--precompute", precompute, "bind the known variables, merge and simplify the rules before querying");
}

void Configuration::apply(QuorelScript::Rules& rules) const {
    if (rootOption.given())
        rules.setVantorRoot(root.c_str());
    if (cwdOption.given())
        rules.setCwd(cwd.c_str());
    else
        rules.setCwdFromProcess();
    for (const std::string& assignment : assignments) {
        auto [name, value] = splitAssignment(assignment);
        rules.bindVariable(name.c_str(), value.c_str());
    }
    if (precompute)
        rules.precompute();
}

bool Configuration::valuesHoldVariables() const {
    auto holdsVariable = [](const std::string& value) { return value.find('$') != std::string::npos; };
    if (rootOption.given() && holdsVariable(root))
        return true;
    if (cwdOption.given())
        return holdsVariable(cwd);
    std::error_code unknown;
    const std::filesystem::path current = std::filesystem::current_path(unknown);
    return !unknown && holdsVariable(current.string());
}

std::map<std::string, std::string> Configuration::setValues() const {
    std::map<std::string, std::string> values;
    for (const std::string& assignment : assignments)
        values.insert(splitAssignment(assignment));
    return values;
}

} // namespace qxqr
