// SPDX-License-Identifier: MIT
// Everything the library accepts works in a host's worker thread with a
// 256 KB stack: conditions nested as deep as the documented limit allows,
// and what merely repeats (a chain of a million terms, a million
// continuation lines, comments continued a million times, long lists) at
// lengths where taking stack for every repetition would overrun it many
// times. Each script is parsed, printed, queried, precomputed and deleted
// on such a stack.
#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>
#include <qxqrscript/observe.hpp>

#include "SmallStack.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

using QuorelScript::Parser;
using QuorelScript::Rules;

namespace {

// The depth of parentheses the language documents as its limit.
const int nestingLimit = 50;

// The file the queries ask about: its name is x and its extension .c.
const char* const file = "/nowhere/src/x.c";

// `text` written `count` times.
std::string repeated(const std::string& text, int count) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

// What the queries on `file` answered.
struct Answers {
    bool excluded = false;
    bool pruned = false;
    int includes = 0;

    bool operator==(const Answers& other) const {
        return excluded == other.excluded && pruned == other.pruned && includes == other.includes;
    }
};

std::ostream& operator<<(std::ostream& out, const Answers& answers) {
    return out << "excluded " << answers.excluded << ", pruned " << answers.pruned << ", " << answers.includes
               << " includes";
}

class CountingIncluder : public QuorelRules::Includer {
public:
    bool include(const char*) override {
        ++count;
        return true;
    }

    int count = 0;
};

Answers ask(Rules& rules) {
    Answers answers;
    answers.excluded = rules.isExcluded(file, nullptr, "/nowhere/src/main.c");
    answers.pruned = rules.isPruned(file, nullptr, "/nowhere/src/main.c");
    CountingIncluder includer;
    rules.getIncludes(file, nullptr, includer);
    answers.includes = includer.count;
    return answers;
}

enum class Precompute { no, yes };

// What a script came to: its printed rule set, and the answers, also after
// precomputing if asked to.
struct Outcome {
    bool accepted = false;
    std::string printed;
    std::string errors;
    Answers answers;
    Answers precomputedAnswers;
};

// Parses `script` with everything that follows on a worker thread's stack:
// printing, the three queries, precomputing and asking again, deleting.
Outcome runOnSmallStack(const std::string& script, Precompute precompute) {
    Outcome outcome;
    SmallStack::run([&] {
        Parser parser;
        std::ostringstream errors;
        parser.setErrorSink(&errors);
        std::unique_ptr<Rules> rules(parser.parse(script.c_str()));
        outcome.errors = errors.str();
        outcome.accepted = rules != nullptr;
        if (!rules)
            return;
        std::ostringstream printed;
        printed << rules.get();
        outcome.printed = printed.str();
        outcome.answers = ask(*rules);
        if (precompute == Precompute::yes) {
            rules->precompute();
            outcome.precomputedAnswers = ask(*rules);
        }
        rules.reset();
    });
    return outcome;
}

// A script, what its rule set prints, and what the queries answer.
struct Script {
    std::string text;
    std::string printed;
    Answers answers;
};

// Runs `script` on a small stack, and checks that it is accepted and prints
// and answers as expected, also after precomputing when asked to.
void expectWorks(const Script& script, Precompute precompute) {
    const Outcome outcome = runOnSmallStack(script.text, precompute);
    ASSERT_TRUE(outcome.accepted) << outcome.errors;
    EXPECT_EQ(script.printed, outcome.printed);
    EXPECT_EQ(script.answers, outcome.answers);
    if (precompute == Precompute::yes) {
        EXPECT_EQ(script.answers, outcome.precomputedAnswers);
    }
}

// The deepest scripts: three rules, each with its condition nested `levels`
// deep in another way, on every path the parser can take into a parenthesis
// (after "or", "and" and "not"), as a negation and to the left of an "and".
// For an even depth each holds for `file`, and only when it is evaluated
// down to its innermost comparison.
Script deepestNesting(int levels) {
    // Every level is "false or (true and not (...) and true)".
    const std::string exclude =
        repeated("$ext == .h or $name == x and not (", levels) + "$name == x" + repeated(") and $ext == .c", levels);
    const std::string prune = repeated("(", levels) + "$name == x" + repeated(") and $ext == .c", levels);
    const std::string include = repeated("not (", levels) + "$name == x" + repeated(")", levels);
    Script script;
    script.text = "exclude if " + exclude + "\nprune if " + prune + "\ninclude [$dir/$name.h] if " + include + "\n";
    script.printed = "\texclude if " + repeated("or(equals($ext,.h),and(equals($name,x),and(not(", levels) +
                     "equals($name,x)" + repeated("),equals($ext,.c))))", levels) + "\n\n" + "\tprune if " +
                     repeated("and(", levels) + "equals($name,x)" + repeated(",equals($ext,.c))", levels) + "\n\n" +
                     "\tinclude [$dir/$name.h] if " + repeated("not(", levels) + "equals($name,x)" +
                     repeated(")", levels) + "\n\n";
    script.answers = Answers{true, true, 1};
    return script;
}

TEST(SmallStack, DeepestNesting) {
    ASSERT_EQ(0, nestingLimit % 2) << "the negations of the include rule cancel out only for an even depth";
    expectWorks(deepestNesting(nestingLimit), Precompute::no);
}

TEST(SmallStack, DeepestNestingPrecomputed) {
    expectWorks(deepestNesting(nestingLimit), Precompute::yes);
}

TEST(SmallStack, OneLevelDeeperIsRejectedAndSaysSo) {
    const std::string text = deepestNesting(nestingLimit + 1).text;
    const Outcome outcome = runOnSmallStack(text, Precompute::no);
    EXPECT_FALSE(outcome.accepted);
    EXPECT_EQ("Syntax error in quorel rules script (<anonymous script>) at line 1:\n" +
                  text.substr(0, text.find('\n')) + "\n\nThe condition nests deeper than 50 levels.\n",
              outcome.errors);
}

// One rule whose condition is a chain of a million terms, which holds only
// through its last one: "$name == y or false and true or ... or $name == x".
Script longestChain() {
    const int terms = 1000000;
    const int pairs = (terms - 2) / 2;
    Script script;
    script.text = "exclude if $name == y" + repeated(" or false and true", pairs) + " or $name == x\n";
    script.printed = "\texclude if or(equals($name,y)," + repeated("or(and(false,true),", pairs) + "equals($name,x)" +
                     repeated(")", pairs + 1) + "\n\n";
    script.answers = Answers{true, false, 0};
    return script;
}

TEST(SmallStack, LongestChain) {
    expectWorks(longestChain(), Precompute::no);
}

TEST(SmallStack, LongestChainPrecomputed) {
    expectWorks(longestChain(), Precompute::yes);
}

// What the observation interface made of the exclude rules: how many nodes
// the first rule's condition has, and whether the traced query excluded.
struct Observed {
    std::size_t nodes = 0;
    bool traceExcluded = false;
};

Observed observeOnSmallStack(const std::string& script) {
    Observed observed;
    SmallStack::run([&] {
        Parser parser;
        std::unique_ptr<Rules> rules(parser.parse(script.c_str()));
        if (!rules)
            return;
        using namespace QuorelScript::Observe;
        observed.nodes = rulesOf(*rules, RuleKind::Exclude).front().condition.nodes.size();
        observed.traceExcluded = traceQuery(*rules, Question::Excluded, file, nullptr).answer;
    });
    return observed;
}

// The view of a rule and its traced query walk a condition with work lists
// of their own: a chain far longer than the stack could take in nested
// calls is shown and traced on a worker thread's stack.
TEST(SmallStack, LongChainObservedAndTraced) {
    const int pairs = 50000;
    const std::string script = "exclude if $name == y" + repeated(" or false and true", pairs) + " or $name == x\n";
    const Observed observed = observeOnSmallStack(script);
    // Per pair an or, an and and its two literals; one more or, and two
    // equals with two paths each.
    EXPECT_EQ(observed.nodes, 4u * pairs + 7u);
    EXPECT_TRUE(observed.traceExcluded);
}

// A million lines that continue one rule.
TEST(SmallStack, LongestContinuationRun) {
    Script script;
    script.text = "prune if $name == x" + repeated(" ...\n", 1000000) + " and $ext == .c\nexclude if $name == y\n";
    script.printed = "\texclude if equals($name,y)\n\n\tprune if and(equals($name,x),equals($ext,.c))\n\n";
    script.answers = Answers{false, true, 0};
    expectWorks(script, Precompute::yes);
}

// A comment continued a million times over as many lines, then one with a
// million comments continued inside it, which needs as many more line ends
// to close them all; the rule after them is the only one.
TEST(SmallStack, LongestContinuedComments) {
    Script script;
    script.text = "% first ...\n" + repeated("more ...\n", 1000000) + "end\n" + "% second " +
                  repeated("...%", 1000000) + repeated("\n", 1000001) + "include [$dir/$name.h] if $ext == .c\n";
    script.printed = "\tinclude [$dir/$name.h] if equals($ext,.c)\n\n";
    script.answers = Answers{false, false, 1};
    expectWorks(script, Precompute::yes);
}

// Lists of twenty thousand paths and one more, the only one that is a
// prefix of the file.
TEST(SmallStack, LongLists) {
    const int paths = 20000;
    std::string written;
    std::string printed;
    for (int i = 0; i < paths; ++i) {
        const std::string path = "/nowhere/p" + std::to_string(i);
        written += path + ", ";
        printed += path + ",";
    }
    Script script;
    script.text = "exclude if $file in [" + written + "$dir/]\ninclude [" + written + "$dir/last.h] if $ext == .c\n";
    script.printed = "\texclude if in($file,[" + printed + "$dir/])\n\n\tinclude [" + printed +
                     "$dir/last.h] if equals($ext,.c)\n\n";
    script.answers = Answers{true, false, paths + 1};
    expectWorks(script, Precompute::yes);
}

// An include rule's wildcard pattern as deep below its first wildcard as the
// directory services match (40 names), and one name deeper, which matches
// nothing; each expanded on the small stack.
TEST(SmallStack, DeepestWildcardPattern) {
    TempTree tree;
    std::string deep = "f";
    for (int level = 1; level < 41; ++level)
        deep = "d/" + deep;
    tree.file(deep);
    const std::string deepest = "$cwd/d/*/" + deep.substr(4);
    const std::string deeper = "$cwd/*/" + deep.substr(2);
    int matches = -1;
    int deeperMatches = -1;
    SmallStack::run([&] {
        Parser parser;
        std::unique_ptr<Rules> rules(parser.parse(
            ("include [" + deepest + "] if $name == x\ninclude [" + deeper + "] if $name == y\n").c_str()));
        ASSERT_NE(nullptr, rules);
        rules->setCwd(tree.path().c_str());
        CountingIncluder includer;
        rules->getIncludes(file, nullptr, includer);
        matches = includer.count;
        CountingIncluder deeperIncluder;
        rules->getIncludes("/nowhere/src/y.c", nullptr, deeperIncluder);
        deeperMatches = deeperIncluder.count;
    });
    EXPECT_EQ(1, matches);
    EXPECT_EQ(0, deeperMatches);
}

} // namespace
