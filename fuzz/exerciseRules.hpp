// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_FUZZ_EXERCISERULES_HPP
#define QXQRSCRIPT_FUZZ_EXERCISERULES_HPP

namespace QuorelScript {
class Rules;
}

// Puts a parsed rule set through everything a host does with one: prints it,
// binds a variable, sets the root and the current directory, asks the three
// questions for a few files, precomputes, then prints and asks again. What it
// answers is not checked; the point is that nothing crashes, leaks or reads
// out of bounds on the way.
void exerciseRules(QuorelScript::Rules& rules);

#endif
