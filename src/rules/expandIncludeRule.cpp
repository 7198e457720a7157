#include "rules/expandIncludeRule.hpp"

#include "expr/Path.hpp"
#include "rules/kfStringProcedureAdapter.hpp"

#include <qxqrscript/host.hpp>

#include <memory>
#include <string>

namespace QuorelScript {

namespace {

bool holdsWildcard(const std::string& text) {
    return text.find_first_of("*?") != std::string::npos;
}

// Files found by the directory services go to the includer; directories
// are dropped.
void includeMatches(const Path& path, bool isDirectory, QuorelRules::Includer& includer) {
    const std::unique_ptr<kfStringProcedureAdapter<QuorelRules::Includer>> files(
        new kfStringProcedureAdapter<QuorelRules::Includer>(includer));
    const kfIgnoreString directories;
    const int wholeDirectory = isDirectory ? 1 : 0;
    kfFindMatchingFilesAndDirs(path.c_str(), *files, directories, wholeDirectory, false);
}

void includePath(const Path& path, QuorelRules::Includer& includer) {
    const bool isDirectory = kfIsDirectory(path.c_str());
    if (isDirectory || holdsWildcard(path.text()))
        includeMatches(path, isDirectory, includer);
    else
        includer.include(path.c_str());
}

} // namespace

void expandIncludeRule(const IncludeRule& rule, const Bindings& bindings, QuorelRules::Includer& includer) {
    if (!rule.condition->evaluate(bindings))
        return;
    for (const Expression<Path>* pathExpression : *rule.paths)
        includePath(pathExpression->evaluate(bindings), includer);
}

} // namespace QuorelScript
