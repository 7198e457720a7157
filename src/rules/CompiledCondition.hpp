// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_COMPILEDCONDITION_HPP
#define QXQRSCRIPT_RULES_COMPILEDCONDITION_HPP

#include "expr/Expression.hpp"
#include "rules/ConfiguredVariables.hpp"
#include "rules/QueryContext.hpp"
#include "rules/QueryVariable.hpp"

#include <memory>
#include <string_view>
#include <vector>

namespace QuorelScript {

// A test that an index can answer for many conditions at once: whether the
// text of a per-query variable equals one of some fixed texts, or starts
// with one of them.
struct IndexableTest {
    enum class Kind { equality, prefix };

    Kind kind;
    QueryVariable variable;
    std::vector<std::string_view> texts;
};

using Guards = std::vector<const IndexableTest*>;

// A condition of a rule, prepared for the queries of a configured rule set.
// It holds exactly when the condition it was made from evaluates to true
// against the query's bindings, and asks the host services the same
// questions in the same order; what it need not work out to know that, it
// does not.
class CompiledCondition {
public:
    virtual ~CompiledCondition() = default;

    virtual bool holds(QueryContext& context) const = 0;

    // True for the literal false, which never holds.
    virtual bool neverHolds() const { return false; }
    // The tests one of which must pass for the condition to hold (none when
    // there are no such tests), and whether passing one is all the condition
    // asks. Only tests that are worked out before anything that asks the
    // host qualify: when they fail, the condition asks the host nothing, so
    // skipping it cannot be noticed.
    virtual Guards guards() const { return {}; }
    // Whether working the condition out may ask a host service (or do
    // anything else a host could notice).
    virtual bool asksTheHost() const { return false; }
    virtual bool isItsGuard() const { return false; }
};

using CompiledConditions = std::vector<std::unique_ptr<CompiledCondition>>;

// Prepares `condition`, whose tree must outlive the result.
std::unique_ptr<CompiledCondition> compileCondition(const Expression<bool>& condition,
                                                    const ConfiguredVariables& configured, ScratchLayout& layout);

} // namespace QuorelScript

#endif
