// SPDX-License-Identifier: MIT
#ifndef QXQR_CONFIGURATION_HPP
#define QXQR_CONFIGURATION_HPP

#include "CommandLine.hpp"

#include <map>
#include <string>
#include <vector>

namespace QuorelScript {
class Rules;
}

namespace qxqr {

// How a rule set is set up before it is queried, as the options --root,
// --cwd, --set and --precompute of `query` and `walk` give it.
class Configuration {
public:
    void addOptions(Subcommand& command);
    // In the order a host follows: root, current directory, variables, and
    // precomputation last, once everything it can bind is known.
    void apply(QuorelScript::Rules& rules) const;
    // The values that --set binds into the conditions, by name. Of two for
    // one name the first counts: once bound, the name is gone from them.
    std::map<std::string, std::string> setValues() const;
    // Whether the root or the current directory that the queries bind holds
    // a `$`, which a query substitutes into again.
    bool valuesHoldVariables() const;

private:
    // Given or not is what counts (an empty --root is still a root), so the
    // options themselves are kept to ask.
    std::string root;
    OptionDeclaration rootOption;
    std::string cwd;
    OptionDeclaration cwdOption;
    std::vector<std::string> assignments; // NAME=VALUE, checked by the parser
    bool precompute = false;
};

} // namespace qxqr

#endif
