// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_SUPPORT_EXAMPLESCRIPT_HPP
#define QXQRSCRIPT_TESTS_SUPPORT_EXAMPLESCRIPT_HPP

// A script with a little of everything the language has: each kind of rule,
// a list, `in`, `exists`, `not`, comparisons, comments on lines of their own
// and after a rule, a blank line, and a rule continued with `...`.
inline constexpr const char* exampleScript = "exclude if $vantor/toolbox/local in [ $cwd, /tmp ]\n"
                                             "prune unless dir exists and not (name == x.c)\n"
                                             "include [a/b.c, lib/*.so] if arch == ia32lx or true\n"
                                             "% a comment line\n"
                                             "\n"
                                             "exclude if x != y % a trailing comment\n"
                                             "include $dir/*.vrkilx ... % continued\n"
                                             "     unless false\n";

#endif
