#include "expr/Bindings.hpp"
#include "expr/Path.hpp"

#include <optional>
#include <string>

namespace QuorelScript {

namespace {

typedef std::string::size_type Position;

// At most this many references are replaced in one path, so that a variable
// whose value refers to itself cannot expand forever.
const int substitutionBudget = 100;

const char nameCharacters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_1234567890";

// A variable reference: the name it gives and the position just after it.
struct Reference {
    std::string name;
    Position end;
};

// ${name}. Without a closing brace the name runs to the end of the text;
// "${}" is no reference at all.
std::optional<Reference> bracedReferenceAt(const std::string& text, Position dollar) {
    const Position nameStart = dollar + 2;
    const Position closing = text.find('}', nameStart);
    if (closing == std::string::npos)
        return Reference{text.substr(nameStart), text.length()};
    if (closing == nameStart)
        return std::nullopt;
    return Reference{text.substr(nameStart, closing - nameStart), closing + 1};
}

// $name, the name being the longest run of name characters. A '$' followed by
// another character is no reference; a '$' that ends the text refers to the
// empty name.
std::optional<Reference> plainReferenceAt(const std::string& text, Position dollar) {
    const Position nameStart = dollar + 1;
    Position nameEnd = text.find_first_not_of(nameCharacters, nameStart);
    if (nameEnd == std::string::npos)
        nameEnd = text.length();
    if (nameEnd == nameStart && nameStart < text.length())
        return std::nullopt;
    return Reference{text.substr(nameStart, nameEnd - nameStart), nameEnd};
}

std::optional<Reference> referenceAt(const std::string& text, Position dollar) {
    const bool braced = dollar + 1 < text.length() && text[dollar + 1] == '{';
    return braced ? bracedReferenceAt(text, dollar) : plainReferenceAt(text, dollar);
}

} // namespace

void Path::substituteVariables(const Bindings& bindings) {
    if (bindings.empty())
        return;
    std::string& text = text_.str();
    int budget = substitutionBudget;
    Position dollar = text.find('$');
    while (dollar != std::string::npos && budget >= 1) {
        const std::optional<Reference> reference = referenceAt(text, dollar);
        const Bindings::const_iterator binding = reference ? bindings.find(Path(reference->name)) : bindings.end();
        if (binding == bindings.end()) {
            dollar = text.find('$', dollar + 1);
            continue;
        }
        text.replace(dollar, reference->end - dollar, binding->second.text());
        normalizer_->normalize(text_);
        --budget;
        // The value may itself hold references: they are expanded in turn.
        dollar = text.find('$', dollar);
    }
}

} // namespace QuorelScript
