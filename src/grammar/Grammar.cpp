// SPDX-License-Identifier: MIT
#include "grammar/Grammar.hpp"

#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/PathLiteral.hpp"
#include "grammar/GrammarConstants.hpp"
#include "grammar/ParserImpl.hpp"
#include "grammar/actions/AttachDebugInfo.hpp"
#include "grammar/actions/DebugPrintMessage.hpp"
#include "grammar/actions/DebugPrintObject.hpp"
#include "grammar/actions/ExpressionListAppend.hpp"
#include "grammar/actions/ExpressionListCreate.hpp"
#include "grammar/actions/IncrementLineCount.hpp"
#include "grammar/actions/PushBinaryOp.hpp"
#include "grammar/actions/PushClone.hpp"
#include "grammar/actions/PushNew.hpp"
#include "grammar/actions/PushUnaryOp.hpp"
#include "pelor/pelor.hpp"

namespace QuorelScript {

namespace {

using pelor::at;
using pelor::ch;
using pelor::lit;
using pelor::one_or_more;
using pelor::zero_or_more;

using Ref = pelor::ref<pelor::rule>;

Ref ref(const pelor::rule& rule) {
    return Ref(rule);
}

pelor::char_class<pelor::or_char_predicate<pelor::exact_char, pelor::exact_char>> blankCharacter() {
    using pelor::exact_char;
    return pelor::char_class<pelor::or_char_predicate<exact_char, exact_char>>(
        pelor::or_char_predicate<exact_char, exact_char>(exact_char(GrammarConstants::space),
                                                         exact_char(GrammarConstants::tab)));
}

pelor::char_class<pelor::not_char_predicate<pelor::exact_char>> anyCharacterBut(char excluded) {
    return pelor::char_class<pelor::not_char_predicate<pelor::exact_char>>(
        pelor::not_char_predicate<pelor::exact_char>(pelor::exact_char(excluded)));
}

// Three dots and the blanks after them: what continues a line, when a line
// end or a comment follows.
auto continuation() {
    return lit("...") >> zero_or_more(blankCharacter());
}

// A keyword ends where a character that cannot continue a word follows. The
// look-ahead needs that character, so it fails at the very end of the text:
// a keyword that ends the text is not recognised.
auto boundary() {
    using NotWordChar = pelor::not_char_predicate<pelor::word_char>;
    return at(pelor::char_class<NotWordChar>(NotWordChar(pelor::word_char())));
}

} // namespace

// The one recursion left is or_expr inside primary, bounded by the nesting
// limit. What merely repeats is read in loops, so that its length costs no
// stack: the chains of "and" and "or", and comments continued inside
// comments.
Grammar::Grammar(ParserImpl& parser) : parser_(parser) {
    buildLexical();
    buildPaths();
    buildComparisons();
    buildConditions();
    buildStatements();
}

// Line ends, blanks, the characters of words and paths, comments.
void Grammar::buildLexical() {
    newline = (lit(GrammarConstants::crlf) | ch(GrammarConstants::lineFeed))[IncrementLineCount(parser_)];

    word_char = pelor::char_class<pelor::or_char_predicate<pelor::alnum, pelor::exact_char>>(
        pelor::or_char_predicate<pelor::alnum, pelor::exact_char>(pelor::alnum(), pelor::exact_char('_')));

    // Three dots, then nothing but blanks up to the line end or a comment,
    // continue the line: together they count as one blank.
    blank = blankCharacter() | (continuation() >> (ref(newline) | ref(comment)));

    path_char = ref(word_char) | (ch('$') >> pelor::char_class<pelor::alpha>(pelor::alpha())) | ch('/') | ch('\\') |
                ch(':') | ch('.') | ch('#');

    wildcard_char = ref(path_char) | ch('?') | ch('*');

    // A comment runs to its line end, where a continuation carries it on
    // over the next line. A continuation that ends in a comment of its own
    // opens one more comment inside it, which must end first: each such
    // comment takes one more line end. They are counted rather than nested,
    // since a line of them is as long as the text allows.
    comment = ch('%') >> pelor::balanced(continuation() >> ch('%'),
                                         blankCharacter() | (continuation() >> ref(newline)) |
                                             anyCharacterBut(GrammarConstants::lineFeed),
                                         pelor::end_of_input() | ref(newline));
}

// A path, and a list of them with or without brackets.
void Grammar::buildPaths() {
    path_literal = (one_or_more(ref(wildcard_char)) |
                    (ch('"') >> one_or_more(ref(wildcard_char) | ch(' ')) >> ch('"')))[PushNew<PathLiteral>(parser_)];

    path = ref(path_literal);

    // The blanks after a further item belong to that item, so a list of two
    // or more paths written without brackets leaves no blank behind it.
    path_list_body =
        zero_or_more(ref(blank)) >> ref(path)[PushUnaryOp<ExpressionListCreate<Path>>(parser_)] >>
        zero_or_more(zero_or_more(ref(blank)) >> ch(',') >> zero_or_more(ref(blank)) >>
                     ref(path)[PushBinaryOp<ExpressionListAppend<Path>>(parser_)] >> zero_or_more(ref(blank)));

    path_list = (ch('[') >> ref(path_list_body) >> ch(']')) | ref(path_list_body);
}

// A path followed by what it is tested for: membership, equality, existence.
void Grammar::buildComparisons() {
    in_tail =
        (lit("in") >> boundary() >> zero_or_more(ref(blank)) >> ref(path_list))[PushBinaryOp<InExpression>(parser_)];

    not_in_tail = ((lit("not in") >> boundary() >> zero_or_more(ref(blank)) >>
                    ref(path_list))[PushBinaryOp<InExpression>(parser_)])[PushUnaryOp<NotExpression<bool>>(parser_)];

    equals_tail = (DebugPrintMessage(parser_, "Attempting to parse equals expression") >> lit("==") >>
                   zero_or_more(ref(blank)) >> ref(path))[PushBinaryOp<EqualsExpression<Path>>(parser_)];

    not_equals_tail =
        ((lit("!=") >> zero_or_more(ref(blank)) >>
          ref(path))[PushBinaryOp<EqualsExpression<Path>>(parser_)])[PushUnaryOp<NotExpression<bool>>(parser_)];

    exists_tail = lit("exists")[PushUnaryOp<ExistsExpression>(parser_)];

    comparison = ref(path) >> zero_or_more(ref(blank)) >>
                 (ref(in_tail) | ref(not_in_tail) | ref(equals_tail) | ref(not_equals_tail) | ref(exists_tail));
}

// The literals, parentheses, "not", and the chains of "and" and "or".
void Grammar::buildConditions() {
    boolean_literal = (lit("true") >> boundary())[PushClone<BooleanLiteral>(parser_, GrammarConstants::trueLiteral)] |
                      (lit("false") >> boundary())[PushClone<BooleanLiteral>(parser_, GrammarConstants::falseLiteral)];

    // The one production that nests. Each parenthesis takes a level, and one
    // past the limit is turned down (and recorded), so the recursion's stack
    // stays bounded.
    primary =
        ref(boolean_literal) | (ch('(') >> pelor::nested(parser_.nesting(), zero_or_more(ref(blank)) >> ref(or_expr) >>
                                                                                zero_or_more(ref(blank)) >> ch(')')));

    // The literals win over a comparison whose path happens to spell them.
    atom = ref(primary) | ref(comparison);

    unary = ref(atom) | (lit("not") >> boundary() >> zero_or_more(ref(blank)) >>
                         ref(atom))[PushUnaryOp<NotExpression<bool>>(parser_)];

    // "a and b and c" is and(a, and(b, c)). The chain reads its operands in
    // a loop and joins them from the right once the last one has been read,
    // as a right-recursive production would after its innermost operand.
    and_tail = lit("and") >> boundary() >> zero_or_more(ref(blank)) >> ref(unary);

    and_expr = pelor::chain(ref(unary), boundary() >> zero_or_more(ref(blank)) >> ref(and_tail),
                            PushBinaryOp<AndExpression>(parser_));

    or_tail = lit("or") >> boundary() >> zero_or_more(ref(blank)) >> ref(and_expr);

    or_expr = pelor::chain(ref(and_expr), boundary() >> zero_or_more(ref(blank)) >> ref(or_tail),
                           PushBinaryOp<OrExpression>(parser_));

    boolean_expression = ref(or_expr)[DebugPrintObject<Expression<bool>>(parser_, "boolean expression")];
}

// The condition part of a rule, "if" or "unless" a condition, followed by
// the action that makes the rule. After "unless" the condition is negated
// before the rule takes it.
template <class MakeRule>
auto Grammar::guardedRule() {
    return (lit("if") >> boundary() >> zero_or_more(ref(blank)) >> ref(boolean_expression))[MakeRule(parser_)] |
           ((lit("unless") >> boundary() >> zero_or_more(ref(blank)) >>
             ref(boolean_expression))[PushUnaryOp<NotExpression<bool>>(parser_)])[MakeRule(parser_)];
}

// A statement that makes a rule R from a keyword and a guarded condition
// alone, named after the statement once it has matched.
template <class R>
auto Grammar::conditionRule(const char* keyword) {
    return (zero_or_more(ref(blank)) >> lit(keyword) >> one_or_more(ref(blank)) >>
            guardedRule<PushUnaryOp<R>>())[AttachDebugInfo<R>(parser_)];
}

// The three kinds of rule, the end of a statement, and the lines a script
// is made of.
void Grammar::buildStatements() {
    exclude_rule = conditionRule<ExcludeRule>("exclude");

    prune_rule = conditionRule<PruneRule>("prune");

    include_rule =
        (zero_or_more(ref(blank)) >> lit("include") >> one_or_more(ref(blank)) >> ref(path_list) >>
         one_or_more(ref(blank)) >> guardedRule<PushBinaryOp<IncludeRule>>())[AttachDebugInfo<IncludeRule>(parser_)];

    statement_end = zero_or_more(ref(blank)) >> (ref(comment) | pelor::end_of_input() | ref(newline));

    statement = (ref(include_rule) | ref(exclude_rule) | ref(prune_rule)) >> ref(statement_end);

    comment_line = zero_or_more(ref(blank)) >> ref(comment);

    blank_line = ref(newline) | (one_or_more(ref(blank)) >> (pelor::end_of_input() | ref(newline)));

    script = zero_or_more(ref(statement) | ref(comment_line) | ref(blank_line));
}

} // namespace QuorelScript
