// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_PARSERIMPL_HPP
#define QXQRSCRIPT_GRAMMAR_PARSERIMPL_HPP

#include "grammar/Grammar.hpp"
#include "grammar/Owned.hpp"
#include "grammar/ParseState.hpp"
#include "rules/Rule.hpp"

#include <exception>
#include <type_traits>
#include <utility>

namespace QuorelScript {

class ParsedRules;

// Everything behind a Parser but where its errors go: the state of a parse,
// and the grammar of the rules language, whose actions build conditions and
// rules in that state through push and pop.
class ParserImpl : public ParseState {
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
    Grammar grammar_;
};

} // namespace QuorelScript

#endif
