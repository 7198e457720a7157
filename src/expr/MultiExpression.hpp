// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_MULTIEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_MULTIEXPRESSION_HPP

#include "expr/Expression.hpp"
#include "expr/ExpressionVector.hpp"
#include "expr/OwnedPointers.hpp"

#include <memory>
#include <ostream>
#include <vector>

namespace QuorelScript {

// The mechanics shared by the n-ary boolean nodes: an owned vector of owned
// operands, handled in vector order. `Derived` supplies evaluate and print,
// and a default constructor.
template <class R, class Derived>
class MultiExpression : public Expression<R> {
public:
    using Operands = std::vector<Expression<bool>*>;

    MultiExpression() : operands_(new Operands) {}
    MultiExpression(const MultiExpression&) = delete;
    MultiExpression& operator=(const MultiExpression&) = delete;
    ~MultiExpression() override { deleteOwned(operands_); }

    Expression<R>* clone() const override {
        std::unique_ptr<Derived> copy(new Derived);
        appendClones(*operands_, *copy->operands_);
        return copy.release();
    }

    bool hasVariables() const override { return anyHasVariables(*operands_); }

    void substituteVariables(const Bindings& bindings) override { substituteEach(*operands_, bindings); }

    // Takes ownership of `operand`, also when the append fails.
    void append(Expression<bool>* operand) { pushOwned(*operands_, operand); }

    // The operands themselves, for rewrites that move them between nodes;
    // whoever takes a pointer out of the vector takes its ownership too.
    Operands& operands() { return *operands_; }
    const Operands& operands() const { return *operands_; }

protected:
    // Prints "[a,b,...]" after the given opening, then ")".
    std::ostream& printOperands(std::ostream& out, const char* opening) const {
        return printBracketed(out << opening, *operands_) << ')';
    }

private:
    Operands* operands_;
};

} // namespace QuorelScript

#endif
