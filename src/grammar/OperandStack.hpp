// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_OPERANDSTACK_HPP
#define QXQRSCRIPT_GRAMMAR_OPERANDSTACK_HPP

#include "grammar/Owned.hpp"

#include <cstddef>
#include <vector>

namespace QuorelScript {

// A stack of owned operands, top at the back. Whatever is still on it when
// it goes is deleted.
template <class T>
class OperandStack {
public:
    OperandStack() = default;
    OperandStack(const OperandStack&) = delete;
    OperandStack& operator=(const OperandStack&) = delete;
    ~OperandStack() { clear(); }

    // Takes ownership, also when the push fails.
    void push(Owned<T> operand) { pushOwned(operands_, operand.release()); }

    // The stack must not be empty.
    Owned<T> pop() {
        Owned<T> top(operands_.back());
        operands_.pop_back();
        return top;
    }

    // The stack must not be empty.
    T& top() const { return *operands_.back(); }

    bool empty() const { return operands_.empty(); }
    std::size_t size() const { return operands_.size(); }

    void clear() {
        while (!empty())
            pop();
    }

private:
    std::vector<T*> operands_;
};

} // namespace QuorelScript

#endif
