// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_QUERYCONTEXT_HPP
#define QXQRSCRIPT_RULES_QUERYCONTEXT_HPP

#include "rules/ConfiguredVariables.hpp"
#include "rules/PositionRun.hpp"
#include "rules/QueryVariable.hpp"
#include "rules/QueryVariables.hpp"

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace QuorelScript {

// How many buffers of each kind the compiled conditions of a rule set use,
// each compiled node that needs one owning a numbered slot. A list of runs
// has room from the start for as many runs as one lookup can find, so that
// no query makes it grow.
struct ScratchLayout {
    std::size_t texts = 0;
    std::vector<std::size_t> runListCapacities;

    std::size_t addText() { return texts++; }
    std::size_t addRunList(std::size_t capacity) {
        runListCapacities.push_back(capacity);
        return runListCapacities.size() - 1;
    }
};

// Everything that changes while a rule set answers one query: the variables
// and the buffers that path texts and index lookups are worked out in. The
// buffers keep their room from one query to the next, so a query allocates
// only when it meets a longer text than any before it.
class QueryContext {
public:
    QueryContext(const ConfiguredVariables& configured, const ScratchLayout& layout);
    QueryContext(const QueryContext&) = delete;
    QueryContext& operator=(const QueryContext&) = delete;

    // A new query about `file`, referred to by `caller` (null for none).
    void start(const char* file, const char* caller);

    QueryVariables& variables() { return variables_; }

    // The text that a path literal consisting of just a reference to
    // `variable` evaluates to in this query; worked out once per query.
    std::string_view variableText(QueryVariable variable) {
        const std::size_t index = indexOf(variable);
        return variableTextReady_[index] ? variableTexts_[index] : workOutVariableText(variable);
    }

    // Replaces the variable references in `text` as a path literal's
    // evaluation in this query would.
    void substitute(std::string& text);

    std::string& text(std::size_t slot) { return texts_[slot]; }
    PositionRuns& runs(std::size_t slot) { return runLists_[slot]; }

private:
    std::string_view workOutVariableText(QueryVariable variable);
    std::string_view normalizedName(std::string_view name);

    QueryVariables variables_;
    std::bitset<queryVariableCount> variableTextReady_;
    std::array<std::string_view, queryVariableCount> variableTexts_;
    std::array<std::string, queryVariableCount> variableTextBuffers_;
    std::string nameBuffer_;
    std::vector<std::string> texts_;
    std::vector<PositionRuns> runLists_;
};

} // namespace QuorelScript

#endif
