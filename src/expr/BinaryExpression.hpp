// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_BINARYEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_BINARYEXPRESSION_HPP

#include "expr/Expression.hpp"
#include "expr/OwnedPointers.hpp"

#include <ostream>
#include <utility>

namespace QuorelScript {

// The mechanics shared by every two-operand node. The left operand is the one
// written first; it is cloned, searched and substituted before the right one.
// `Derived` supplies evaluate and print, and a constructor from two pointers.
template <class R, class Derived, class A, class B>
class BinaryExpression : public Expression<R> {
public:
    // Takes ownership of both operands.
    BinaryExpression(Expression<A>* left, Expression<B>* right) : left_(left), right_(right) {}
    BinaryExpression(const BinaryExpression&) = delete;
    BinaryExpression& operator=(const BinaryExpression&) = delete;
    ~BinaryExpression() override {
        delete right_;
        delete left_;
    }

    Expression<R>* clone() const override {
        OwnedPointer<Expression<A>> leftCopy(left_->clone());
        OwnedPointer<Expression<B>> rightCopy(right_->clone());
        return newOwner<Derived>(std::move(leftCopy), std::move(rightCopy));
    }

    bool hasVariables() const override { return left_->hasVariables() || right_->hasVariables(); }

    void substituteVariables(const Bindings& bindings) override {
        left_->substituteVariables(bindings);
        right_->substituteVariables(bindings);
    }

    Expression<A>* left() const { return left_; }
    Expression<B>* right() const { return right_; }

    // Give up ownership of one operand; the node is left without it.
    Expression<A>* releaseLeft() { return std::exchange(left_, nullptr); }
    Expression<B>* releaseRight() { return std::exchange(right_, nullptr); }

    // Takes ownership of `right`; the node must hold none.
    void adoptRight(Expression<B>* right) { right_ = right; }

protected:
    // Prints the given opening, then left "," right ")".
    std::ostream& printOperands(std::ostream& out, const char* opening) const {
        left_->print(out << opening) << ',';
        return right_->print(out) << ')';
    }

private:
    Expression<A>* left_;
    Expression<B>* right_;
};

} // namespace QuorelScript

#endif
