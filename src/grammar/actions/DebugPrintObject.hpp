// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTOBJECT_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_DEBUGPRINTOBJECT_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <iostream>
#include <string>
#include <utility>

namespace QuorelScript {

// In debug-verbose mode, shows on standard output the text just matched
// under a label, and the tree that it left on top of the stack of T.
template <class T>
class DebugPrintObject : public ParserAction {
public:
    DebugPrintObject(ParserImpl& parser, std::string label) : ParserAction(parser), label_(std::move(label)) {}

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        if (!parser().debugVerbose())
            return;
        OperandStack<T>& stack = parser().template stack<T>();
        if (stack.empty())
            throw ParserImpl::InternalError();
        std::cout << "Parsed (" << label_ << "): " << std::string(first, last) << std::endl << "    parse tree: ";
        stack.top().print(std::cout) << std::endl;
    }

private:
    std::string label_;
};

} // namespace QuorelScript

#endif
