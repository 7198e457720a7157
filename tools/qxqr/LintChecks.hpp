// SPDX-License-Identifier: MIT
#ifndef QXQR_LINTCHECKS_HPP
#define QXQR_LINTCHECKS_HPP

#include "RuleFirstLines.hpp"

#include <qxqrscript/observe.hpp>

#include <set>
#include <string>
#include <vector>

namespace qxqr {

// One thing a script says that is probably not what its author meant.
struct LintWarning {
    // The rule it is about; none for a warning about a script's directive.
    const QuorelScript::Observe::Rule* rule;
    std::string script; // the script's name as the library knows it
    long line;          // the rule's first line (see LintedRules), or the directive's
    std::string check;  // the check's name, as --disable takes it
    std::string message;
};

// What the checks take as given besides the rules.
struct LintSettings {
    std::set<std::string> declaredVariables; // the names given with --set
    std::set<std::string> allowedPrefixes;   // `in` elements meant as plain prefixes (--allow)
};

// The names of the checks, in the order the documentation lists them.
const std::vector<std::string>& lintCheckNames();

// The rules to check, in the order rulesOf gives them.
struct LintedRules {
    // As the scripts wrote them.
    const std::vector<QuorelScript::Observe::Rule>& asWritten;
    // The same rules, one for one, once the fixed variables
    // (FixedVariables.hpp) are bound into their conditions, as precompute
    // binds them whatever the host configured.
    const std::vector<QuorelScript::Observe::Rule>& withFixedValues;
    // Where each rule of asWritten begins in its script, the line a warning
    // names, so that an editor lands on the rule: the line the library
    // records may lie past the rule's last one, even past the end of the
    // script. A rule without an entry is named by its recorded line.
    const FirstLines& firstLines;
};

// Every warning about `rules`, rule by rule, each rule's warnings in the
// order of lintCheckNames.
std::vector<LintWarning> lintRules(const LintedRules& rules, const LintSettings& settings);

} // namespace qxqr

#endif
