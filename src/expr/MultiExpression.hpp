#ifndef QXQRSCRIPT_EXPR_MULTIEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_MULTIEXPRESSION_HPP

#include "expr/Expression.hpp"

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
    typedef std::vector<Expression<bool>*> Operands;

    MultiExpression() : operands_(new Operands) {}
    MultiExpression(const MultiExpression&) = delete;
    MultiExpression& operator=(const MultiExpression&) = delete;
    ~MultiExpression() override {
        for (Expression<bool>* operand : *operands_)
            delete operand;
        delete operands_;
    }

    Expression<R>* clone() const override {
        std::unique_ptr<Derived> copy(new Derived);
        // Reserving exactly the source's size first means the appends below
        // cannot reallocate, so no clone can be lost between two steps.
        copy->operands_->reserve(operands_->size());
        for (const Expression<bool>* operand : *operands_)
            copy->operands_->push_back(operand->clone());
        return copy.release();
    }

    bool hasVariables() const override {
        for (const Expression<bool>* operand : *operands_)
            if (operand->hasVariables())
                return true;
        return false;
    }

    void substituteVariables(const Bindings& bindings) override {
        for (Expression<bool>* operand : *operands_)
            operand->substituteVariables(bindings);
    }

    // Takes ownership of `operand`, also when the append fails.
    void append(Expression<bool>* operand) {
        std::unique_ptr<Expression<bool>> owned(operand);
        operands_->push_back(operand);
        owned.release();
    }

    // The operands themselves, for rewrites that move them between nodes;
    // whoever takes a pointer out of the vector takes its ownership too.
    Operands& operands() { return *operands_; }
    const Operands& operands() const { return *operands_; }

protected:
    // Prints "[a,b,...]" after the given opening, then ")".
    std::ostream& printOperands(std::ostream& out, const char* opening) const {
        out << opening << '[';
        for (typename Operands::size_type i = 0; i < operands_->size(); ++i) {
            if (i != 0)
                out << ',';
            (*operands_)[i]->print(out);
        }
        return out << "])";
    }

private:
    Operands* operands_;
};

} // namespace QuorelScript

#endif
