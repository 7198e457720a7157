// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_JUNCTIONEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_JUNCTIONEXPRESSION_HPP

#include "expr/BinaryExpression.hpp"
#include "expr/JunctionChain.hpp"

namespace QuorelScript {

// The two-operand and and or. A script's "a and b and c" is and(a, and(b,
// c)), so its right operands make chains as long as the script's, and every
// operation walks along such a chain in a loop, and or or nodes alike, in
// the order and with the results of the plain recursion (JunctionChain.hpp).
// The recursion that is left goes into left operands only, which are as
// deep as the parentheses of a script nest. `Derived` supplies a
// constructor from two pointers, the left operand's value that decides the
// whole (`decisive`) and the printed opening (`opening`).
template <class Derived>
class JunctionExpression : public BinaryExpression<bool, Derived, bool, bool> {
public:
    // Takes ownership of both operands.
    JunctionExpression(Expression<bool>* left, Expression<bool>* right)
        : BinaryExpression<bool, Derived, bool, bool>(left, right) {}
    ~JunctionExpression() override { deleteChain(this->releaseRight()); }

    bool evaluate(const Bindings& bindings) const override { return evaluateChain(*this, bindings); }
    Expression<bool>* clone() const override { return cloneChain(*this); }
    std::ostream& print(std::ostream& out) const override { return printChain(*this, out); }
    bool hasVariables() const override { return chainHasVariables(*this); }
    void substituteVariables(const Bindings& bindings) override { substituteChain(*this, bindings); }
};

} // namespace QuorelScript

#endif
