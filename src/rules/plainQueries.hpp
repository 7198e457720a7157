// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_PLAINQUERIES_HPP
#define QXQRSCRIPT_RULES_PLAINQUERIES_HPP

#include "expr/Bindings.hpp"
#include "rules/Rule.hpp"
#include "rules/expandIncludeRule.hpp"

#include <qxqrscript/QuorelRules.hpp>

#include <cstddef>
#include <vector>

namespace QuorelScript {

// The queries as the rules define them, with nothing prepared: every
// condition evaluated in rule order against the bindings made for the file.
// What the prepared queries answer is exactly this; a rule set answers this
// way itself while preparing would not pay.

// The first rule whose condition holds, or null.
template <class Rule>
const Rule* firstMatchingRule(const std::vector<Rule*>& rules, const Bindings& bindings) {
    for (const Rule* rule : rules)
        if (conditionOf(*rule).evaluate(bindings))
            return rule;
    return nullptr;
}

// Every include rule from the one at `first` on adds its paths, in order.
inline void includeFromEachRule(const IncludeRuleList& rules, std::size_t first, const Bindings& bindings,
                                QuorelRules::Includer& includer) {
    for (std::size_t position = first; position < rules.size(); ++position)
        expandIncludeRule(*rules[position], bindings, includer);
}

} // namespace QuorelScript

#endif
