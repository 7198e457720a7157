// SPDX-License-Identifier: MIT
// Matching must not allocate. This executable replaces the global allocation
// functions with counting ones (ReplacedAllocator), builds a grammar that uses every primitive,
// every predicate, every adapter and rule references (building may allocate),
// then matches a long text over each kind of position and checks that the
// count did not move. The same functions can be told to fail, to show what a
// rule is left with when giving it a body runs out of memory.

#include "pelor/pelor.hpp"

#include "ReplacedAllocator.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>

namespace {

using pelor::ch;
using pelor::lit;
using pelor::ref;
using pelor::rule;

// Counts calls without allocating.
class Tally {
public:
    explicit Tally(int& calls) : calls_(&calls) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        ++*calls_;
    }

private:
    int* calls_;
};

// Statements of the form "let name = value;", "print name, name, ...;" or
// "print_every_value;", with blanks, newlines and comments between them; a
// name may stand in parentheses, a few levels deep, and a comment's "{"
// makes it run on to one more line end. The last keyword is longer than any
// string kept inside a std::string object, so a literal that copied the input
// to compare it would be caught allocating.
class StatementGrammar {
public:
    StatementGrammar() : depth(4) {
        using pelor::char_class;
        using pelor::exact_char;
        using pelor::not_char_predicate;
        using pelor::or_char_predicate;

        const auto boundary = pelor::at(char_class<not_char_predicate<pelor::word_char>>());
        const char_class<or_char_predicate<exact_char, exact_char>> blankChar(
            or_char_predicate<exact_char, exact_char>(' ', '\t'));
        blank = pelor::zero_or_more(blankChar);
        newline = (lit("\r\n") | ch('\n'))[Tally(lines)];
        name = (char_class<pelor::alpha>() >> pelor::zero_or_more(char_class<pelor::alnum>())) |
               (ch('(') >> pelor::nested(depth, ref<rule>(name)) >> ch(')'));
        value = pelor::one_or_more(char_class<not_char_predicate<exact_char>>(not_char_predicate<exact_char>(';')));
        let = lit("let") >> boundary >> ref<rule>(blank) >> ref<rule>(name) >> ref<rule>(blank) >> ch('=') >>
              ref<rule>(blank) >> ref<rule>(value);
        print = lit("print_every_value") >> boundary |
                lit("print") >> boundary >> ref<rule>(blank) >>
                    pelor::chain(ref<rule>(name), ref<rule>(blank) >> ch(',') >> ref<rule>(blank) >> ref<rule>(name),
                                 Tally(names));
        comment =
            ch('#') >> pelor::balanced(ch('{'),
                                       char_class<not_char_predicate<exact_char>>(not_char_predicate<exact_char>('\n')),
                                       ref<rule>(newline));
        statement =
            pelor::epsilon()[Tally(statementsTried)] >>
            ((ref<rule>(let) | ref<rule>(print)) >> pelor::optional(ref<rule>(blank)) >> ch(';'))[Tally(statements)];
        script = pelor::zero_or_more(ref<rule>(statement) | ref<rule>(newline) | pelor::one_or_more(blankChar) |
                                     ref<rule>(comment)) >>
                 pelor::repeat<1, 2>(pelor::end_of_input());
    }

    rule blank;
    rule newline;
    rule name;
    rule value;
    rule let;
    rule print;
    rule statement;
    rule comment;
    rule script;
    pelor::nesting_depth depth;
    int lines = 0;
    int names = 0;
    int statements = 0;
    int statementsTried = 0;
};

const int repetitions = 2000;

std::string longScript() {
    std::string text;
    for (int i = 0; i < repetitions; ++i) {
        text += "let x1 = some value;\r\n\tprint x1 , ((y)), z ; print_every_value;#{ see\nbelow\n";
    }
    return text;
}

template <class Iterator>
void expectNoAllocation(StatementGrammar& grammar, Iterator begin, Iterator end) {
    grammar.lines = 0;
    grammar.statements = 0;
    grammar.names = 0;
    Iterator pos = begin;
    const std::size_t before = ReplacedAllocator::count();
    const bool matched = grammar.script.body()->parse(pos, end);
    const std::size_t after = ReplacedAllocator::count();
    EXPECT_EQ(after, before);
    EXPECT_TRUE(matched);
    EXPECT_TRUE(pos == end);
    EXPECT_EQ(grammar.lines, 3 * repetitions);
    EXPECT_EQ(grammar.statements, 3 * repetitions);
    EXPECT_EQ(grammar.names, 2 * repetitions);
}

TEST(NoAllocation, CountingSeesAllocations) {
    const std::size_t before = ReplacedAllocator::count();
    const std::string text = longScript();
    EXPECT_GT(ReplacedAllocator::count(), before);
    EXPECT_GT(text.size(), 0u);
}

TEST(NoAllocation, BuildingAGrammarMayAllocate) {
    const std::size_t before = ReplacedAllocator::count();
    const StatementGrammar grammar;
    EXPECT_GE(ReplacedAllocator::count(), before + 8);
}

TEST(NoAllocation, MatchingAllocatesNothing) {
    StatementGrammar grammar;
    std::string text = longScript();
    const char* pos = text.data();
    const std::size_t before = ReplacedAllocator::count();
    const bool matched = grammar.script.match(pos, text.data() + text.size());
    EXPECT_EQ(ReplacedAllocator::count(), before);
    EXPECT_TRUE(matched);
    EXPECT_EQ(pos, text.data() + text.size());
    EXPECT_EQ(grammar.statements, 3 * repetitions);
    EXPECT_EQ(grammar.names, 2 * repetitions);
    EXPECT_GT(grammar.statementsTried, grammar.statements);

    const char* const constBegin = text.data();
    expectNoAllocation(grammar, constBegin, constBegin + text.size());
    expectNoAllocation(grammar, text.data(), text.data() + text.size());
    expectNoAllocation(grammar, text.cbegin(), text.cend());
    expectNoAllocation(grammar, text.begin(), text.end());
}

TEST(NoAllocation, FailingAndBacktrackingAllocateNothing) {
    StatementGrammar grammar;
    std::string text = longScript() + "print (((((too deep)))));";
    const char* pos = text.data();
    const std::size_t before = ReplacedAllocator::count();
    const bool matched = grammar.script.match(pos, text.data() + text.size());
    EXPECT_EQ(ReplacedAllocator::count(), before);
    EXPECT_FALSE(matched);
    EXPECT_EQ(pos, text.data());
    EXPECT_TRUE(grammar.depth.exceeded());
}

// Assigns `body` to `target` while only `allowed` allocations may succeed;
// true when the assignment ran out of memory.
template <class Body>
bool assignRunningOutOfMemory(rule& target, const Body& body, int allowed) {
    ReplacedAllocator::failAfter(allowed);
    bool ranOut = false;
    try {
        target = body;
    } catch (const std::bad_alloc&) {
        ranOut = true;
    }
    ReplacedAllocator::failAfter(-1);
    return ranOut;
}

// The new body needs two allocations: the body object, then the copy of its
// literal's text, too long to be kept inside the string object. Whichever
// fails, the old body is already gone and nothing leaks.
TEST(NoAllocation, AssignmentOutOfMemoryLeavesTheRuleWithoutABody) {
    const auto body = lit("a literal much too long to fit in a string object") >> ch('!');
    for (int allowed = 0; allowed < 2; ++allowed) {
        rule r;
        r = lit("old");
        EXPECT_TRUE(assignRunningOutOfMemory(r, body, allowed)) << allowed;
        EXPECT_EQ(r.body(), nullptr) << allowed;
        const std::string text = "old";
        const char* pos = text.data();
        EXPECT_FALSE(r.match(pos, text.data() + text.size())) << allowed;
        EXPECT_EQ(pos, text.data()) << allowed;
    }
    rule r;
    EXPECT_FALSE(assignRunningOutOfMemory(r, body, 2));
    EXPECT_NE(r.body(), nullptr);
}

} // namespace
