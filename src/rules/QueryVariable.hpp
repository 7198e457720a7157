// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_QUERYVARIABLE_HPP
#define QXQRSCRIPT_RULES_QUERYVARIABLE_HPP

#include <cstddef>
#include <optional>
#include <string_view>

namespace QuorelScript {

// The eleven variables that every query binds.
enum class QueryVariable : unsigned char { vantor, toolbox, file, caller, cwd, dir, name, ext, vrk, arch, lib };

inline constexpr std::size_t queryVariableCount = 11;

// The variable of that name (a bare, normalized name such as "file"), if any.
std::optional<QueryVariable> queryVariableNamed(std::string_view name);

std::string_view nameOf(QueryVariable variable);

// True for the variables that describe the file asked about (file, caller,
// dir, name, ext); the others hold the same value for every query on a rule
// set until it is configured anew.
bool variesPerQuery(QueryVariable variable);

inline std::size_t indexOf(QueryVariable variable) {
    return static_cast<std::size_t>(variable);
}

} // namespace QuorelScript

#endif
