// SPDX-License-Identifier: MIT
#include "rules/CompiledPath.hpp"

#include "expr/PathLiteral.hpp"
#include "expr/pathTextNormalForm.hpp"
#include "expr/variableSubstitution.hpp"

#include <typeinfo>

namespace QuorelScript {

namespace {

// Substitutes the variables that the configuration fixes into `text`, as a
// query would. False, with `text` in no useful state, as soon as the
// substitution asks for a variable that varies per query: only a text that
// never looks at the file is the same for every query.
bool substituteConfigured(std::string& text, const ConfiguredVariables& configured) {
    bool fixed = true;
    std::string name;
    const auto lookup = [&](std::string_view reference) -> std::optional<std::string_view> {
        name.assign(reference);
        normalizePathText(name);
        const std::optional<QueryVariable> variable = queryVariableNamed(name);
        if (!variable)
            return std::nullopt;
        if (variesPerQuery(*variable))
            fixed = false;
        return configured.value(*variable);
    };
    substituteVariableReferences(text, lookup, [&fixed](std::string& substituted) {
        if (fixed)
            normalizePathText(substituted);
    });
    return fixed;
}

// The variable that `text` consists of a lone reference to, if any.
std::optional<QueryVariable> loneReference(const std::string& text) {
    if (text.empty() || text.front() != '$')
        return std::nullopt;
    const std::optional<VariableReference> reference = variableReferenceAt(text, 0);
    if (!reference || reference->end != text.length())
        return std::nullopt;
    std::string name(reference->name);
    normalizePathText(name);
    return queryVariableNamed(name);
}

} // namespace

CompiledPath::CompiledPath(const Expression<Path>& expression, const ConfiguredVariables& configured,
                           ScratchLayout& layout)
    : opaque_(&expression), slot_(layout.addText()) {
    if (typeid(expression) != typeid(PathLiteral))
        return;
    const std::string& written = static_cast<const PathLiteral&>(expression).path().text();
    text_ = written;
    if (written.find('$') == std::string::npos || substituteConfigured(text_, configured)) {
        kind_ = Kind::fixed;
        return;
    }
    text_ = written;
    const std::optional<QueryVariable> lone = loneReference(written);
    if (lone && variesPerQuery(*lone)) {
        kind_ = Kind::loneVariable;
        variable_ = *lone;
        return;
    }
    kind_ = Kind::substituted;
}

std::string_view CompiledPath::workedOutText(QueryContext& context) const {
    std::string& text = context.text(slot_);
    if (kind_ == Kind::substituted) {
        text.assign(text_);
        context.substitute(text);
    } else {
        text.assign(opaque_->evaluate(context.variables().bindings()).text());
    }
    return text;
}

const char* CompiledPath::terminatedText(QueryContext& context) const {
    if (kind_ == Kind::fixed)
        return text_.c_str();
    const std::string_view view = text(context);
    std::string& text = context.text(slot_);
    if (view.data() != text.data())
        text.assign(view);
    return text.c_str();
}

std::optional<std::string_view> CompiledPath::fixedText() const {
    if (kind_ == Kind::fixed)
        return std::string_view(text_);
    return std::nullopt;
}

std::optional<QueryVariable> CompiledPath::loneVariable() const {
    if (kind_ == Kind::loneVariable)
        return variable_;
    return std::nullopt;
}

} // namespace QuorelScript
