// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_UNARYEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_UNARYEXPRESSION_HPP

#include "expr/Expression.hpp"
#include "expr/OwnedPointers.hpp"

#include <ostream>
#include <utility>

namespace QuorelScript {

// The mechanics shared by every one-operand node: ownership, cloning and
// substitution. `Derived` supplies evaluate and print, and a constructor
// from an operand pointer.
template <class R, class Derived, class A>
class UnaryExpression : public Expression<R> {
public:
    // Takes ownership of `operand`.
    explicit UnaryExpression(Expression<A>* operand) : operand_(operand) {}
    UnaryExpression(const UnaryExpression&) = delete;
    UnaryExpression& operator=(const UnaryExpression&) = delete;
    ~UnaryExpression() override { delete operand_; }

    Expression<R>* clone() const override { return newOwner<Derived>(OwnedPointer<Expression<A>>(operand_->clone())); }

    bool hasVariables() const override { return operand_->hasVariables(); }

    void substituteVariables(const Bindings& bindings) override { operand_->substituteVariables(bindings); }

    Expression<A>* operand() const { return operand_; }

    // Gives up ownership of the operand; the node is left without one.
    Expression<A>* releaseOperand() { return std::exchange(operand_, nullptr); }

    // Takes ownership of `operand`; the node must hold none.
    void adoptOperand(Expression<A>* operand) { operand_ = operand; }

protected:
    // Prints the given opening, then the operand and ")".
    std::ostream& printOperands(std::ostream& out, const char* opening) const {
        return operand_->print(out << opening) << ')';
    }

private:
    Expression<A>* operand_;
};

} // namespace QuorelScript

#endif
