// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_COMPILEDPATH_HPP
#define QXQRSCRIPT_RULES_COMPILEDPATH_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "rules/ConfiguredVariables.hpp"
#include "rules/QueryContext.hpp"
#include "rules/QueryVariable.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace QuorelScript {

// A path expression of a condition, prepared for the queries of a configured
// rule set. Its text for a query is the text the expression evaluates to
// against the query's bindings, worked out with as little as the expression
// needs: fixed once when it uses none of the file's variables, a variable's
// value when it is a lone reference, the full substitution otherwise.
class CompiledPath {
public:
    CompiledPath(const Expression<Path>& expression, const ConfiguredVariables& configured, ScratchLayout& layout);

    // The text in this query; valid until this path is evaluated again in
    // the same context, or the query ends.
    std::string_view text(QueryContext& context) const {
        if (kind_ == Kind::fixed)
            return text_;
        if (kind_ == Kind::loneVariable)
            return context.variableText(variable_);
        return workedOutText(context);
    }
    // The same, NUL-terminated, for the host services.
    const char* terminatedText(QueryContext& context) const;

    // The text, when it is the same for every query.
    std::optional<std::string_view> fixedText() const;
    // The variable, when the path is a lone reference to one that varies per query.
    std::optional<QueryVariable> loneVariable() const;

private:
    enum class Kind { fixed, loneVariable, substituted, opaque };

    // The text of a substituted or opaque path, made in its buffer.
    std::string_view workedOutText(QueryContext& context) const;

    Kind kind_{Kind::opaque};
    // The fixed text, or the literal's text as written for a substitution.
    std::string text_;
    QueryVariable variable_{};
    const Expression<Path>* opaque_;
    std::size_t slot_;
};

} // namespace QuorelScript

#endif
