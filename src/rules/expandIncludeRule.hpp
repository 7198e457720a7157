// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_EXPANDINCLUDERULE_HPP
#define QXQRSCRIPT_RULES_EXPANDINCLUDERULE_HPP

#include "expr/Bindings.hpp"
#include "rules/Rule.hpp"

#include <qxqrscript/QuorelRules.hpp>

namespace QuorelScript {

// How a path of an include rule becomes files.
enum class PathExpansion { plain, directory, pattern };

// Passes the files that the path of an include rule denotes to `includer`:
// the path itself, whether it exists or not, unless it names a directory or
// holds '*' or '?'; then the files that the directory services find for it.
// Tells which of these it was.
PathExpansion includeFilesOf(const char* path, QuorelRules::Includer& includer);

// When the rule's condition holds, passes every file that its paths denote
// to `includer`, in list order: a plain path as it is, whether it exists or
// not; the files of a directory, and those matching a pattern with '*' or
// '?', as the directory services find them.
void expandIncludeRule(const IncludeRule& rule, const Bindings& bindings, QuorelRules::Includer& includer);

} // namespace QuorelScript

#endif
