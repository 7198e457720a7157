// SPDX-License-Identifier: MIT
#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/Rules.hpp>

#include <ostream>

// Defined out of line so that the virtual tables and type information of
// the abstract classes are emitted here, once, and exported.
QuorelRules::~QuorelRules() = default;

QuorelRules::Includer::~Includer() = default;

QuorelScript::Rules::~Rules() = default;

// A null rule set prints as one without rules: as nothing.
std::ostream& operator<<(std::ostream& os, const QuorelScript::Rules* rules) {
    if (rules == nullptr)
        return os;
    return rules->print(os);
}
