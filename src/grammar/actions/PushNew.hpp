// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHNEW_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHNEW_HPP

#include "expr/PathLiteral.hpp"
#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <string>

namespace QuorelScript {

template <class X>
class PushNew;

// Pushes the path literal that the matched text spells. A quoted path loses
// its quotes and keeps everything between them, spaces included. Each end
// loses a quote on its own; the grammar only ever matches both or neither.
template <>
class PushNew<PathLiteral> : public ParserAction {
public:
    using ParserAction::ParserAction;

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        std::string text(first, last);
        if (!text.empty() && text.front() == '"')
            text.erase(0, 1);
        if (!text.empty() && text.back() == '"')
            text.pop_back();
        const char* characters = text.data();
        parser().push(Owned<Expression<Path>>(new PathLiteral(characters, characters + text.size())));
    }
};

} // namespace QuorelScript

#endif
