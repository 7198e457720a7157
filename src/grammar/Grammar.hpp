// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_GRAMMAR_HPP
#define QXQRSCRIPT_GRAMMAR_GRAMMAR_HPP

#include "pelor/rule.hpp"

namespace QuorelScript {

class ParserImpl;

// The grammar of the rules language: one rule per production, each given its
// body once, when the grammar is made. Productions refer to each other by
// reference, so a production may be built before those it refers to; they
// are built level by level: the lexical ones, the paths, the comparisons,
// the conditions over them, the statements. The actions that the productions
// run work on the state of `parser`, which must outlive the grammar.
class Grammar {
public:
    explicit Grammar(ParserImpl& parser);
    Grammar(const Grammar&) = delete;
    Grammar& operator=(const Grammar&) = delete;

    // Runs the script production from `cursor` towards `end`; the cursor is
    // left where the match stopped.
    void matchScript(const char*& cursor, const char* end) const { script.match(cursor, end); }

private:
    void buildLexical();
    void buildPaths();
    void buildComparisons();
    void buildConditions();
    void buildStatements();
    template <class MakeRule>
    auto guardedRule();
    template <class R>
    auto conditionRule(const char* keyword);

    ParserImpl& parser_;

    // Lexical.
    pelor::rule newline;
    pelor::rule word_char;
    pelor::rule blank;
    pelor::rule path_char;
    pelor::rule wildcard_char;
    pelor::rule comment;
    // Paths.
    pelor::rule path_literal;
    pelor::rule path;
    pelor::rule path_list_body;
    pelor::rule path_list;
    // Comparisons.
    pelor::rule in_tail;
    pelor::rule not_in_tail;
    pelor::rule equals_tail;
    pelor::rule not_equals_tail;
    pelor::rule exists_tail;
    pelor::rule comparison;
    // Conditions.
    pelor::rule boolean_literal;
    pelor::rule primary;
    pelor::rule atom;
    pelor::rule unary;
    pelor::rule and_expr;
    pelor::rule and_tail;
    pelor::rule or_expr;
    pelor::rule or_tail;
    pelor::rule boolean_expression;
    // Statements.
    pelor::rule exclude_rule;
    pelor::rule prune_rule;
    pelor::rule include_rule;
    pelor::rule statement_end;
    pelor::rule statement;
    pelor::rule comment_line;
    pelor::rule blank_line;
    pelor::rule script;
};

} // namespace QuorelScript

#endif
