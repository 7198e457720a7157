// SPDX-License-Identifier: MIT
#include "expr/Bindings.hpp"
#include "expr/Path.hpp"
#include "expr/pathTextNormalForm.hpp"
#include "expr/variableSubstitution.hpp"

#include <string>

namespace QuorelScript {

namespace {

using Position = std::string::size_type;

const char nameCharacters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_1234567890";

std::optional<VariableReference> bracedReferenceAt(const std::string& text, Position dollar) {
    const Position nameStart = dollar + 2;
    const Position closing = text.find('}', nameStart);
    const std::string_view rest = std::string_view(text).substr(nameStart);
    if (closing == std::string::npos)
        return VariableReference{rest, text.length()};
    if (closing == nameStart)
        return std::nullopt;
    return VariableReference{rest.substr(0, closing - nameStart), closing + 1};
}

std::optional<VariableReference> plainReferenceAt(const std::string& text, Position dollar) {
    const Position nameStart = dollar + 1;
    Position nameEnd = text.find_first_not_of(nameCharacters, nameStart);
    if (nameEnd == std::string::npos)
        nameEnd = text.length();
    if (nameEnd == nameStart && nameStart < text.length())
        return std::nullopt;
    return VariableReference{std::string_view(text).substr(nameStart, nameEnd - nameStart), nameEnd};
}

} // namespace

std::optional<VariableReference> variableReferenceAt(const std::string& text, Position dollar) {
    const bool braced = dollar + 1 < text.length() && text[dollar + 1] == '{';
    return braced ? bracedReferenceAt(text, dollar) : plainReferenceAt(text, dollar);
}

// The names are looked up as paths, so a braced name is normalized first:
// ${ file } names the variable file. A name in normal form already, as every
// plain one is, is looked up as it stands.
void Path::substituteVariables(const Bindings& bindings) {
    if (bindings.empty())
        return;
    const auto lookup = [&bindings](std::string_view name) -> std::optional<std::string_view> {
        const Bindings::const_iterator binding =
            isNormalPathText(name) ? bindings.find(name) : bindings.find(Path(std::string(name)));
        if (binding == bindings.end())
            return std::nullopt;
        return std::string_view(binding->second.text());
    };
    substituteVariableReferences(text_.str(), lookup, [this](std::string&) { normalizer_->normalize(text_); });
}

} // namespace QuorelScript
