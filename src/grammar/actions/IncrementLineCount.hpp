// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_INCREMENTLINECOUNT_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_INCREMENTLINECOUNT_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

namespace QuorelScript {

// Counts one line per line end matched. A line end matched by an attempt
// that later fails stays counted: actions are never undone.
class IncrementLineCount : public ParserAction {
public:
    using ParserAction::ParserAction;

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        parser().countLine();
    }
};

} // namespace QuorelScript

#endif
