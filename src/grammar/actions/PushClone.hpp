// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHCLONE_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHCLONE_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <type_traits>
#include <utility>

namespace QuorelScript {

// Pushes a copy of a constant node, which stays where it is.
template <class X>
class PushClone : public ParserAction {
public:
    PushClone(ParserImpl& parser, const X& constant) : ParserAction(parser), constant_(&constant) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        using Node = std::remove_pointer_t<decltype(std::declval<const X&>().clone())>;
        parser().push(Owned<Node>(constant_->clone()));
    }

private:
    const X* constant_;
};

} // namespace QuorelScript

#endif
