// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_RULES_REFERENCEPRECOMPUTE_HPP
#define QXQRSCRIPT_TESTS_RULES_REFERENCEPRECOMPUTE_HPP

#include "PlainQueries.hpp"

#include "expr/Expression.hpp"
#include "rules/ParsedRules.hpp"

#include <memory>

// Precompute as it is defined, written the plain way: operands erased and
// inserted one at a time, every operand simplified again wherever the rule
// says so, nothing remembered. It is slow on long rule lists, and it is the
// yardstick the library's own precompute is held to: the same printed rules
// and the same host calls, in the same order.
namespace ReferencePrecompute {

using namespace QuorelScript;

// Binds the known variables into `rules`, a rule set the parser made (every
// rule has a condition), through its own bindVariable, then returns a new
// rule set whose exclude and prune rules are each merged into one and
// simplified, and whose include rules are copies. The new set holds no
// configuration: it is asked through PlainQueries, with `configuration`.
std::unique_ptr<ParsedRules> precomputed(ParsedRules& rules, const PlainQueries::Configuration& configuration);

} // namespace ReferencePrecompute

#endif
