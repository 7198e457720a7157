// SPDX-License-Identifier: MIT
#include "rules/QueryVariable.hpp"

#include "expr/fixedVariables.hpp"

namespace QuorelScript {

namespace {

const std::string_view names[queryVariableCount] = {"vantor", "toolbox", "file",  "caller", "cwd",  "dir",
                                                    "name",   "ext",     vrkName, archName, libName};

} // namespace

std::optional<QueryVariable> queryVariableNamed(std::string_view name) {
    for (std::size_t i = 0; i < queryVariableCount; ++i)
        if (names[i] == name)
            return static_cast<QueryVariable>(i);
    return std::nullopt;
}

std::string_view nameOf(QueryVariable variable) {
    return names[indexOf(variable)];
}

bool variesPerQuery(QueryVariable variable) {
    switch (variable) {
    case QueryVariable::file:
    case QueryVariable::caller:
    case QueryVariable::dir:
    case QueryVariable::name:
    case QueryVariable::ext:
        return true;
    default:
        return false;
    }
}

} // namespace QuorelScript
