// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_RULE_HPP
#define QXQR_BENCH_RULE_HPP

#include <string>
#include <vector>

namespace qxqr::bench {

// A generated rule as a small model. Both the script text the library parses
// and the yardstick's plain string tests are made from it, so the two always
// describe the same rule set.

enum class RuleKind { exclude, prune, include };

// The per-file variables a condition looks at.
enum class FileVariable { file, dir, name, ext };

enum class Comparison {
    equals,     // `$x == P`: the variable's text is P
    startsWith, // `$x in [P, Q]`: it begins with one of the paths
};

// One comparison of a file variable with paths written as in a script; the
// paths may name the host's variables ($vantor, $toolbox, $cwd, $vrk).
struct Test {
    FileVariable variable;
    Comparison comparison;
    std::vector<std::string> paths;
    bool negated = false;
};

struct Rule {
    RuleKind kind;
    std::vector<Test> condition;       // the tests joined by `and`
    std::vector<std::string> includes; // an include rule's paths; they may name $dir, $name, $ext and $file
    // A file the condition holds for, written with variables, where "{stem}"
    // stands for any name part: what the query generator makes hits from.
    std::string hitExample;
};

// The script that states `rules` in order, with a comment line before every
// tenth rule as a script author would write.
std::string scriptText(const std::vector<Rule>& rules);

// The script text of one rule, without its line end.
std::string statementText(const Rule& rule);

} // namespace qxqr::bench

#endif
