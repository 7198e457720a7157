// SPDX-License-Identifier: MIT
#include "rules/QueryContext.hpp"

#include "expr/pathTextNormalForm.hpp"
#include "expr/variableSubstitution.hpp"

namespace QuorelScript {

QueryContext::QueryContext(const ConfiguredVariables& configured, const ScratchLayout& layout)
    : variables_(configured), texts_(layout.texts), runLists_(layout.runListCapacities.size()) {
    for (std::size_t slot = 0; slot < runLists_.size(); ++slot)
        runLists_[slot].reserve(layout.runListCapacities[slot]);
}

void QueryContext::start(const char* file, const char* caller) {
    variables_.start(file, caller);
    variableTextReady_.reset();
}

// A lone reference is replaced by the value, which is normalized; a value
// already in normal form without references of its own is the text itself.
std::string_view QueryContext::workOutVariableText(QueryVariable variable) {
    const std::size_t index = indexOf(variable);
    const std::string_view value = variables_.value(variable);
    std::string& buffer = variableTextBuffers_[index];
    if (value.find('$') != std::string_view::npos) {
        buffer.assign("$").append(nameOf(variable));
        substitute(buffer);
        variableTexts_[index] = buffer;
    } else if (variables_.isNormal(variable)) {
        variableTexts_[index] = value;
    } else {
        buffer.assign(value);
        normalizePathText(buffer);
        variableTexts_[index] = buffer;
    }
    variableTextReady_[index] = true;
    return variableTexts_[index];
}

// Names are looked up as paths are, so a braced name is normalized first.
std::string_view QueryContext::normalizedName(std::string_view name) {
    if (isNormalPathText(name))
        return name;
    nameBuffer_.assign(name);
    normalizePathText(nameBuffer_);
    return nameBuffer_;
}

void QueryContext::substitute(std::string& text) {
    const auto lookup = [this](std::string_view name) -> std::optional<std::string_view> {
        const std::optional<QueryVariable> variable = queryVariableNamed(normalizedName(name));
        if (!variable)
            return std::nullopt;
        return variables_.value(*variable);
    };
    substituteVariableReferences(text, lookup, normalizePathText);
}

} // namespace QuorelScript
