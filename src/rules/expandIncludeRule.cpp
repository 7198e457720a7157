// SPDX-License-Identifier: MIT
#include "rules/expandIncludeRule.hpp"

#include "expr/Path.hpp"
#include "rules/kfStringProcedureAdapter.hpp"

#include <qxqrscript/host.hpp>

#include <cstring>

namespace QuorelScript {

namespace {

bool holdsWildcard(const char* path) {
    return std::strpbrk(path, "*?") != nullptr;
}

// Files found by the directory services go to the includer; directories
// are dropped.
void includeMatches(const char* path, bool isDirectory, QuorelRules::Includer& includer) {
    const kfStringProcedureAdapter<QuorelRules::Includer> files(includer);
    const kfIgnoreString directories;
    const int wholeDirectory = isDirectory ? 1 : 0;
    kfFindMatchingFilesAndDirs(path, files, directories, wholeDirectory, false);
}

} // namespace

PathExpansion includeFilesOf(const char* path, QuorelRules::Includer& includer) {
    const bool isDirectory = kfIsDirectory(path);
    if (isDirectory || holdsWildcard(path)) {
        includeMatches(path, isDirectory, includer);
        return isDirectory ? PathExpansion::directory : PathExpansion::pattern;
    }
    includer.include(path);
    return PathExpansion::plain;
}

void expandIncludeRule(const IncludeRule& rule, const Bindings& bindings, QuorelRules::Includer& includer) {
    if (!conditionOf(rule).evaluate(bindings))
        return;
    for (const Expression<Path>* pathExpression : *rule.paths)
        includeFilesOf(pathExpression->evaluate(bindings).c_str(), includer);
}

} // namespace QuorelScript
