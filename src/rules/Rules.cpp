#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/Rules.hpp>

#include <ostream>

// Defined out of line so that the virtual tables and type information of
// the abstract classes are emitted here, once, and exported.
QuorelRules::~QuorelRules() {}

QuorelRules::Includer::~Includer() {}

QuorelScript::Rules::~Rules() {}

std::ostream& operator<<(std::ostream& os, const QuorelScript::Rules* rules) {
    return rules->print(os);
}
