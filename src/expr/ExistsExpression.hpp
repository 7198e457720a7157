// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_EXISTSEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_EXISTSEXPRESSION_HPP

#include "expr/Path.hpp"
#include "expr/UnaryExpression.hpp"

namespace QuorelScript {

// exists(operand): asks the file system anew at every evaluation (precompute
// folds one over a path without variables into its answer, once).
class ExistsExpression : public UnaryExpression<bool, ExistsExpression, Path> {
public:
    explicit ExistsExpression(Expression<Path>* operand);

    bool evaluate(const Bindings& bindings) const override;
    std::ostream& print(std::ostream& out) const override;
};

} // namespace QuorelScript

#endif
