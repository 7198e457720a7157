#ifndef QXQRSCRIPT_INSPECT_HPP
#define QXQRSCRIPT_INSPECT_HPP

// A read-only view of a rule set, for tools that explain and check scripts:
// every rule with its recorded text and its condition as a tree of plain
// values. Nothing here changes the rule set or what its queries answer.

#include <qxqrscript/version.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace QuorelScript {

class Rules;

namespace Inspect {

// What a node of a condition is. AllOf and AnyOf are the n-ary and and or
// that precompute makes; a script's own "a and b" is And, "a or b" Or.
enum class NodeKind { And, Or, Not, AllOf, AnyOf, Equals, In, Exists, True, False, Path, Other };

// One node of a condition. Its operands are other nodes of the same
// condition, named by their index, in the order they are evaluated in:
// left before right; for In the subject first, then the list's elements;
// for Equals the left and the right operand as written (the right one is
// evaluated first).
struct Node {
    NodeKind kind = NodeKind::Other;
    std::vector<std::size_t> operands;
    // For a Path, its text as the rule holds it now: as written in the
    // script, or with the variables that bindVariable or precompute bound.
    // For Other (a node of a kind this view does not know), its printed form.
    std::string text;
    // For a Path, the names of the variables its text refers to, in order.
    std::vector<std::string> variables;
};

// A condition: nodes[0] is the root, and every node comes before its
// operands. Held flat, so that a chain of a million "or" is no deeper to
// hold, copy or destroy than one.
struct Condition {
    std::vector<Node> nodes;
};

enum class RuleKind { Exclude, Prune, Include };

// One rule of a rule set.
struct Rule {
    RuleKind kind = RuleKind::Exclude;
    // The rule's place among the rules of its kind, from 0.
    std::size_t position = 0;
    // The text that names the rule, as getLastMatchText reports it.
    std::string recordedText;
    // The parts of that text: the script's name, the line, the rule as the
    // script wrote it. A text without that form (a rule made by hand) gives
    // an empty script, line 0 and the whole text.
    std::string script;
    long line = 0;
    std::string text;
    // The rule as the rule set prints it, without the leading tab.
    std::string printed;
    Condition condition;
    // An include rule's list of paths, each a Path node; empty otherwise.
    std::vector<Node> paths;
};

// The rules of `rules`: the exclude rules, then the prune rules, then the
// include rules, each kind in its order. A rule set that this library did
// not make has none to show.
QXQRSCRIPT_API std::vector<Rule> rulesOf(const Rules& rules);

// The rules of one kind, in order.
QXQRSCRIPT_API std::vector<Rule> rulesOf(const Rules& rules, RuleKind kind);

} // namespace Inspect

} // namespace QuorelScript

#endif
