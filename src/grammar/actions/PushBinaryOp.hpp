// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHBINARYOP_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHBINARYOP_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/OperationTraits.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <utility>

namespace QuorelScript {

// Replaces X's two operands by the X built from them. The right operand was
// pushed last, so it is popped first.
template <class X>
class PushBinaryOp : public ParserAction {
public:
    using ParserAction::ParserAction;

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        using Op = Operation<X>;
        Owned<typename Op::Right> right = parser().template pop<typename Op::Right>();
        Owned<typename Op::Left> left = parser().template pop<typename Op::Left>();
        parser().template push<typename Op::Result>(Op::build(std::move(left), std::move(right)));
    }
};

} // namespace QuorelScript

#endif
