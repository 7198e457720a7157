// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_EXPRESSION_HPP
#define QXQRSCRIPT_EXPR_EXPRESSION_HPP

#include <iosfwd>

namespace QuorelScript {

class Bindings;

// A node of a condition tree, of value type T (bool or Path). A node owns its
// operands outright; trees are copied only through clone().
template <class T>
class Expression {
public:
    virtual ~Expression() = default;

    // The node's value, with path variables taken from `bindings`.
    virtual T evaluate(const Bindings& bindings) const = 0;
    // A deep copy, owned by the caller.
    virtual Expression<T>* clone() const = 0;
    // The printed form, which never holds blanks, line breaks or quotes.
    virtual std::ostream& print(std::ostream& out) const = 0;
    // True if some path literal of the subtree holds a '$'.
    virtual bool hasVariables() const = 0;
    // Rewrites every path literal of the subtree in place, depth-first.
    virtual void substituteVariables(const Bindings& bindings) = 0;
};

} // namespace QuorelScript

#endif
