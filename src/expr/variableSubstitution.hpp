// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_VARIABLESUBSTITUTION_HPP
#define QXQRSCRIPT_EXPR_VARIABLESUBSTITUTION_HPP

#include <optional>
#include <string>
#include <string_view>

namespace QuorelScript {

// A variable reference in a path's text: the name it gives (a view into the
// text) and the position just after it.
struct VariableReference {
    std::string_view name;
    std::string::size_type end;
};

// The reference that the '$' at `dollar` opens, if it opens one: ${name},
// where a missing closing brace lets the name run to the end of the text and
// "${}" is none; or $name, the longest run of letters, digits and '_', where
// a '$' followed by another character is none and a '$' that ends the text
// refers to the empty name.
std::optional<VariableReference> variableReferenceAt(const std::string& text, std::string::size_type dollar);

// At most this many references are replaced in one text, so that a variable
// whose value refers to itself cannot expand forever.
inline constexpr int substitutionBudget = 100;

// Replaces, from left to right, each reference whose name `lookup` knows
// (it returns the value's text, or nothing for an unknown name) by that
// value, and has `normalize` bring the whole text into normal form after each
// replacement. The search goes on at the place of the replacement, so a value
// that holds references is expanded in turn; an unknown reference stays as
// written and the search goes on after its '$'.
template <class Lookup, class Normalize>
void substituteVariableReferences(std::string& text, Lookup&& lookup, Normalize&& normalize) {
    int budget = substitutionBudget;
    std::string::size_type dollar = text.find('$');
    while (dollar != std::string::npos && budget >= 1) {
        const std::optional<VariableReference> reference = variableReferenceAt(text, dollar);
        const std::optional<std::string_view> value =
            reference ? lookup(reference->name) : std::optional<std::string_view>();
        if (!value) {
            dollar = text.find('$', dollar + 1);
            continue;
        }
        text.replace(dollar, reference->end - dollar, value->data(), value->size());
        normalize(text);
        --budget;
        dollar = text.find('$', dollar);
    }
}

} // namespace QuorelScript

#endif
