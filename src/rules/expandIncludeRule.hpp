#ifndef QXQRSCRIPT_RULES_EXPANDINCLUDERULE_HPP
#define QXQRSCRIPT_RULES_EXPANDINCLUDERULE_HPP

#include "expr/Bindings.hpp"
#include "rules/Rule.hpp"

#include <qxqrscript/QuorelRules.hpp>

namespace QuorelScript {

// When the rule's condition holds, passes every file that its paths denote
// to `includer`, in list order: a plain path as it is, whether it exists or
// not; the files of a directory, and those matching a pattern with '*' or
// '?', as the directory services find them.
void expandIncludeRule(const IncludeRule& rule, const Bindings& bindings, QuorelRules::Includer& includer);

} // namespace QuorelScript

#endif
