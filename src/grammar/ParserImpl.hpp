// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_PARSERIMPL_HPP
#define QXQRSCRIPT_GRAMMAR_PARSERIMPL_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"
#include "grammar/CollectedRules.hpp"
#include "grammar/OperandStack.hpp"
#include "grammar/Owned.hpp"
#include "pelor/pelor.hpp"
#include "rules/Rule.hpp"

#include <exception>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace QuorelScript {

class ParsedRules;

// Everything behind a Parser: the grammar of the rules language, the stacks
// on which its actions build conditions, the rules collected and not yet
// handed over, the line counter and the settings that error reports and
// traces use.
class ParserImpl {
public:
    // An action found the parser in a state that the grammar cannot produce.
    class InternalError : public std::exception {
    public:
        const char* what() const noexcept override;
    };

    ParserImpl();
    ParserImpl(const ParserImpl&) = delete;
    ParserImpl& operator=(const ParserImpl&) = delete;

    // Runs the script rule from `cursor` towards `end`, starting at line 1;
    // the cursor is left where the match stopped.
    void matchScript(const char*& cursor, const char* end);

    // Hands the collected rules over: all of them into a new rule set, or
    // appended to `rules`, exclude rules first, then include, then prune.
    ParsedRules* releaseRules();
    void handOverRules(ParsedRules& rules);

    // How deep parentheses may nest in a condition. Each level costs the
    // parser a recursion through seven productions; at this depth that
    // stays within a quarter-megabyte thread stack with room to spare, even
    // in a debugging build with address checks, where a level takes about
    // 3.6 KB.
    static constexpr int nestingLimit = 50;
    // Whether the last text nested parentheses deeper than that.
    bool nestedTooDeep() const { return nesting_.exceeded(); }

    int lineCount() const { return lineCount_; }
    void countLine() { ++lineCount_; }

    bool debugVerbose() const { return debugVerbose_; }
    void setDebugVerbose(bool on) { debugVerbose_ = on; }

    const std::string& scriptName() const { return scriptName_; }
    void setScriptName(const std::string& name) { scriptName_ = name; }

    std::ostream& errorSink() const { return *errorSink_; }
    // A null sink keeps errors inside the parser again. The first real sink
    // receives whatever was kept until then.
    void setErrorSink(std::ostream* sink);

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

    // The top operand of type T, taken off its stack.
    template <class T>
    Owned<T> pop() {
        if (stack<T>().empty())
            throw InternalError();
        return stack<T>().pop();
    }

    // Puts an operand on its stack, or a rule at the end of its list.
    template <class T>
    void push(Owned<T> item) {
        if constexpr (std::is_base_of<ConditionRule, T>::value)
            rules<T>().push(std::move(item));
        else
            stack<T>().push(std::move(item));
    }

private:
    void buildGrammar();
    template <class MakeRule>
    auto guardedRule();
    template <class R>
    auto conditionRule(const char* keyword);

    // The productions of the rules language, in the order they are built.
    pelor::rule newline;
    pelor::rule word_char;
    pelor::rule blank;
    pelor::rule path_char;
    pelor::rule wildcard_char;
    pelor::rule path_literal;
    pelor::rule boolean_literal;
    pelor::rule path;
    pelor::rule path_list_body;
    pelor::rule path_list;
    pelor::rule in_tail;
    pelor::rule not_in_tail;
    pelor::rule equals_tail;
    pelor::rule not_equals_tail;
    pelor::rule exists_tail;
    pelor::rule comparison;
    pelor::rule primary;
    pelor::rule atom;
    pelor::rule unary;
    pelor::rule and_expr;
    pelor::rule and_tail;
    pelor::rule or_expr;
    pelor::rule or_tail;
    pelor::rule boolean_expression;
    pelor::rule exclude_rule;
    pelor::rule prune_rule;
    pelor::rule include_rule;
    pelor::rule statement_end;
    pelor::rule statement;
    pelor::rule comment;
    pelor::rule comment_line;
    pelor::rule blank_line;
    pelor::rule script;

    pelor::nesting_depth nesting_;
    std::tuple<OperandStack<Expression<bool>>, OperandStack<Expression<Path>>, OperandStack<PathList>> stacks_;
    std::tuple<CollectedRules<ExcludeRule>, CollectedRules<IncludeRule>, CollectedRules<PruneRule>> collected_;

    bool debugVerbose_;
    int lineCount_;
    std::string scriptName_;
    std::ostringstream errorCapture_;
    std::ostream* errorSink_;
};

} // namespace QuorelScript

#endif
