// SPDX-License-Identifier: MIT
#include "rules/printRule.hpp"

#include <ostream>

namespace QuorelScript {

void printRule(std::ostream& os, const ExcludeRule& rule) {
    os << "exclude if ";
    conditionOf(rule).print(os);
}

void printRule(std::ostream& os, const PruneRule& rule) {
    os << "prune if ";
    conditionOf(rule).print(os);
}

void printRule(std::ostream& os, const IncludeRule& rule) {
    os << "include ";
    printPathList(os, *rule.paths) << " if ";
    conditionOf(rule).print(os);
}

} // namespace QuorelScript
