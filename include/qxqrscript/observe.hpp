// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_OBSERVE_HPP
#define QXQRSCRIPT_OBSERVE_HPP

// A read-only view of a rule set, for tools that explain and check scripts:
// every rule with its recorded text and its condition as a tree of plain
// values. Nothing here changes the rule set or what its queries answer.

#include <qxqrscript/version.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace QuorelScript {

class Rules;

namespace Observe {

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

// A traced query: the same evaluation as the query itself, in the same
// order, with the same short cuts and the same calls of the host's file
// services, recording what each part of each condition came to. Only the
// host's text search for doubled slashes (asked in a multibyte locale other
// than UTF-8) may be called for other texts: the trace binds every variable
// first, where a prepared query looks only at the texts its conditions read.

enum class Question { Excluded, Pruned, Includes };

// "No such index": the element of an `in` that matched when none did, the
// deciding rule when none decided.
inline constexpr std::size_t none = static_cast<std::size_t>(-1);

// What one node of a condition came to.
struct NodeValue {
    // False for a node that the evaluation did not reach, because an
    // operand before it decided or its rule was not asked.
    bool evaluated = false;
    // A condition node's value; for Exists, the host's answer about the
    // path its operand came to.
    bool value = false;
    // A Path's (or a path-valued Other's) text once its variables are
    // substituted: for Exists the path asked about.
    std::string text;
    // For In, the element that matched, as an index into the node's
    // operands (1 for the first element), or none.
    std::size_t matchedElement = none;
};

// How an include rule's path became files.
enum class Expansion { Plain, Directory, Pattern };

// One path of an include rule whose condition held.
struct IncludedPath {
    std::string text; // the path with its variables substituted
    Expansion expansion = Expansion::Plain;
    // The files it gave, in the order the includer would receive them: the
    // path itself when Plain, else what the directory services found.
    std::vector<std::string> files;
};

// One rule in a traced query.
struct RuleTrace {
    Rule rule;
    // Whether the query asked this rule at all: after the deciding exclude
    // or prune rule, no further rule is asked.
    bool evaluated = false;
    bool fired = false;
    // One value per node of rule.condition.
    std::vector<NodeValue> values;
    // For a fired include rule, each of its paths, in order.
    std::vector<IncludedPath> included;
};

// A variable of the query and its value.
struct Variable {
    std::string name;
    std::string value;
};

struct QueryTrace {
    Question question = Question::Excluded;
    // The variables as the query bound them, by name. Empty when the rule
    // set has no list of rules of the kind asked about (no script gave it
    // one), as the query then returns before it binds anything. A list that
    // is there but empty still has them bound: a parser that has appended
    // its rules to one rule set gives the next rule set it makes an empty
    // list of each kind it then finds no rule of.
    std::vector<Variable> variables;
    std::vector<RuleTrace> rules;
    // The query's answer: excluded or pruned; for Includes, whether any
    // include rule fired.
    bool answer = false;
    // The index in `rules` of the exclude or prune rule that decided, or none.
    std::size_t decidingRule = none;
};

// Asks `question` about `file` (and, for Excluded and Pruned, `caller`; the
// include rules are asked without one, as getIncludes asks them) of
// `rules`, as the query itself would: the rule set keeps the text of the
// deciding rule for getLastMatchText as that query would. Include rules add
// their files to the trace only; no includer of the host's is called. Null
// arguments are empty paths. A rule set that this library did not make
// gives an empty trace.
QXQRSCRIPT_API QueryTrace traceQuery(Rules& rules, Question question, const char* file, const char* caller);

} // namespace Observe

} // namespace QuorelScript

#endif
