// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_RULES_PLAINQUERIES_HPP
#define QXQRSCRIPT_TESTS_RULES_PLAINQUERIES_HPP

#include "expr/Bindings.hpp"
#include "rules/ParsedRules.hpp"
#include "rules/expandIncludeRule.hpp"

#include <string>
#include <vector>

// The three queries as they are defined: a bindings map built for the file,
// then every condition evaluated in rule order against it. What a rule set
// answers must be exactly this, however it gets there.
namespace PlainQueries {

using namespace QuorelScript;

// The configuration a query reads, as the rule set stored it (empty when
// unset), and whether it was set, which precompute asks.
struct Configuration {
    bool hasRoot = false;
    std::string vantorRoot;
    bool hasCwd = false;
    std::string cwd;
};

template <class Rule>
bool firstMatch(const std::vector<Rule*>* rules, const Configuration& configuration, const char* file,
                const char* caller, std::string& lastMatchText) {
    if (rules == nullptr)
        return false;
    const Bindings bindings(configuration.vantorRoot.c_str(), file, caller, configuration.cwd.c_str());
    for (const Rule* rule : *rules) {
        if (rule->condition->evaluate(bindings)) {
            lastMatchText = rule->debugInfo;
            return true;
        }
    }
    return false;
}

inline void includes(const IncludeRuleList* rules, const Configuration& configuration, const char* file,
                     QuorelRules::Includer& includer) {
    if (rules == nullptr)
        return;
    const Bindings bindings(configuration.vantorRoot.c_str(), file, nullptr, configuration.cwd.c_str());
    for (const IncludeRule* rule : *rules)
        expandIncludeRule(*rule, bindings, includer);
}

} // namespace PlainQueries

#endif
