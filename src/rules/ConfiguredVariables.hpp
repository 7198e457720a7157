// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_CONFIGUREDVARIABLES_HPP
#define QXQRSCRIPT_RULES_CONFIGUREDVARIABLES_HPP

#include "rules/QueryVariable.hpp"

#include <string>
#include <string_view>

namespace QuorelScript {

// The variables whose values a rule set's configuration decides, the same
// for all its queries: vantor, toolbox and cwd from the stored root and
// directory, and the three fixed ones. Values are in the form the bindings
// of a query give them.
class ConfiguredVariables {
public:
    // The rule set's stored strings, empty when unset.
    ConfiguredVariables(const std::string& vantorRoot, const std::string& cwd);

    // The value of a variable that does not vary per query.
    std::string_view value(QueryVariable variable) const;

    // The strings the rule set stored, as a query hands them to its bindings.
    const std::string& vantorRoot() const { return vantorRoot_; }
    const std::string& cwd() const { return cwdArgument_; }

private:
    std::string vantorRoot_;
    std::string cwdArgument_;
    std::string vantor_;
    std::string toolbox_;
    std::string cwd_;
};

} // namespace QuorelScript

#endif
