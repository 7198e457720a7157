// SPDX-License-Identifier: MIT
#include "grammar/ParseState.hpp"

namespace QuorelScript {

ParseState::ParseState(int nestingLimit) : nesting_(nestingLimit), scriptName_("<anonymous script>") {}

void ParseState::beginText() {
    // Alternatives that fail after their actions have pushed operands leave
    // those operands behind, below everything that later actions use; a
    // failed parse can leave anything. None of it matters to a new parse.
    stack<Expression<bool>>().clear();
    stack<Expression<Path>>().clear();
    stack<PathList>().clear();
    nesting_.reset();
    lineCount_ = 1;
}

} // namespace QuorelScript
