// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_BOOLEANLITERAL_HPP
#define QXQRSCRIPT_EXPR_BOOLEANLITERAL_HPP

#include "expr/Expression.hpp"

namespace QuorelScript {

// The literal true or false.
class BooleanLiteral : public Expression<bool> {
public:
    explicit BooleanLiteral(bool value);

    bool evaluate(const Bindings& bindings) const override;
    Expression<bool>* clone() const override;
    std::ostream& print(std::ostream& out) const override;
    bool hasVariables() const override;
    void substituteVariables(const Bindings& bindings) override;

    bool value() const { return value_; }

private:
    bool value_;
};

} // namespace QuorelScript

#endif
