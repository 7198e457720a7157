// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_PRINTRULE_HPP
#define QXQRSCRIPT_RULES_PRINTRULE_HPP

#include "rules/Rule.hpp"

#include <iosfwd>

namespace QuorelScript {

// A rule as the rule set prints it, without the leading tab and line end:
// "exclude if ", "prune if " or "include [paths] if ", then the condition.
void printRule(std::ostream& os, const ExcludeRule& rule);
void printRule(std::ostream& os, const PruneRule& rule);
void printRule(std::ostream& os, const IncludeRule& rule);

} // namespace QuorelScript

#endif
