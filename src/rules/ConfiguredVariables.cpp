// SPDX-License-Identifier: MIT
#include "rules/ConfiguredVariables.hpp"

#include "expr/fixedVariables.hpp"
#include "expr/pathTextNormalForm.hpp"

namespace QuorelScript {

namespace {

std::string normalized(std::string text) {
    normalizePathText(text);
    return text;
}

} // namespace

// toolbox joins the normalized root and "/toolbox", then normalizes the
// joint, so a root that ends in '/' gives no doubled slash.
ConfiguredVariables::ConfiguredVariables(const std::string& vantorRoot, const std::string& cwd)
    : vantorRoot_(vantorRoot), cwdArgument_(cwd), vantor_(normalized(vantorRoot)),
      toolbox_(normalized(vantor_ + normalized("/toolbox"))), cwd_(normalized(cwd)) {}

std::string_view ConfiguredVariables::value(QueryVariable variable) const {
    switch (variable) {
    case QueryVariable::vantor:
        return vantor_;
    case QueryVariable::toolbox:
        return toolbox_;
    case QueryVariable::cwd:
        return cwd_;
    case QueryVariable::vrk:
        return vrkValue;
    case QueryVariable::arch:
        return archValue;
    case QueryVariable::lib:
        return libValue;
    default:
        return {};
    }
}

} // namespace QuorelScript
