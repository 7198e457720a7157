// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_PARSESTATE_HPP
#define QXQRSCRIPT_GRAMMAR_PARSESTATE_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"
#include "grammar/CollectedRules.hpp"
#include "grammar/OperandStack.hpp"
#include "pelor/nesting_adapter.hpp"
#include "rules/Rule.hpp"

#include <string>
#include <tuple>

namespace QuorelScript {

// What a parse builds and carries: the stacks on which the actions build
// conditions, the rules collected and not yet handed over, the line counter,
// the depth of the parentheses, and the settings that error reports and
// traces use. The grammar works on it; it holds no part of the grammar.
class ParseState {
public:
    // Parentheses may nest `nestingLimit` levels deep.
    explicit ParseState(int nestingLimit);
    ParseState(const ParseState&) = delete;
    ParseState& operator=(const ParseState&) = delete;

    // Readies the state for a new text, starting at line 1. The collected
    // rules stay: they go with the next text that matches completely.
    void beginText();

    // Whether the last text nested parentheses deeper than the limit.
    bool nestedTooDeep() const { return nesting_.exceeded(); }
    // The depth that the nesting production counts in.
    pelor::nesting_depth& nesting() { return nesting_; }

    int lineCount() const { return lineCount_; }
    void countLine() { ++lineCount_; }

    bool debugVerbose() const { return debugVerbose_; }
    void setDebugVerbose(bool on) { debugVerbose_ = on; }

    const std::string& scriptName() const { return scriptName_; }
    void setScriptName(const std::string& name) { scriptName_ = name; }

    // The operands of type T (Expression<bool>, Expression<Path> or PathList).
    template <class T>
    OperandStack<T>& stack() {
        return std::get<OperandStack<T>>(stacks_);
    }

    // The collected rules of type R (ExcludeRule, IncludeRule or PruneRule).
    template <class R>
    CollectedRules<R>& rules() {
        return std::get<CollectedRules<R>>(collected_);
    }

private:
    pelor::nesting_depth nesting_;
    std::tuple<OperandStack<Expression<bool>>, OperandStack<Expression<Path>>, OperandStack<PathList>> stacks_;
    std::tuple<CollectedRules<ExcludeRule>, CollectedRules<IncludeRule>, CollectedRules<PruneRule>> collected_;

    bool debugVerbose_{false};
    int lineCount_{0};
    std::string scriptName_;
};

} // namespace QuorelScript

#endif
