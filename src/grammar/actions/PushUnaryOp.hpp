// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHUNARYOP_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_PUSHUNARYOP_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/OperationTraits.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <utility>

namespace QuorelScript {

// Replaces the top operand of X's operand stack by the X built around it.
template <class X>
class PushUnaryOp : public ParserAction {
public:
    using ParserAction::ParserAction;

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        using Op = Operation<X>;
        Owned<typename Op::Operand> operand = parser().template pop<typename Op::Operand>();
        parser().template push<typename Op::Result>(Op::build(std::move(operand)));
    }
};

} // namespace QuorelScript

#endif
