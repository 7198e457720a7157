// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_EXPRESSIONVECTOR_HPP
#define QXQRSCRIPT_EXPR_EXPRESSIONVECTOR_HPP

#include "expr/Expression.hpp"

#include <ostream>
#include <vector>

namespace QuorelScript {

// What the nodes that hold a vector of owned operands (the n-ary nodes, the
// list of an "in" test) do with it, always in vector order; deleting them is
// deleteEach's (expr/OwnedPointers.hpp).

// Appends the elements' clones to the empty `target`, which has first reserved
// exactly the room they need, so that no append can reallocate and lose a
// clone. If a clone fails, the clones made so far are in `target`, whose owner
// deletes them.
template <class T>
void appendClones(const std::vector<Expression<T>*>& elements, std::vector<Expression<T>*>& target) {
    target.reserve(elements.size());
    for (const Expression<T>* element : elements)
        target.push_back(element->clone());
}

// Stops at the first element that has variables.
template <class T>
bool anyHasVariables(const std::vector<Expression<T>*>& elements) {
    for (const Expression<T>* element : elements)
        if (element->hasVariables())
            return true;
    return false;
}

template <class T>
void substituteEach(const std::vector<Expression<T>*>& elements, const Bindings& bindings) {
    for (Expression<T>* element : elements)
        element->substituteVariables(bindings);
}

// "[a,b,...]", and "[]" for no elements.
template <class T>
std::ostream& printBracketed(std::ostream& out, const std::vector<Expression<T>*>& elements) {
    out << '[';
    for (typename std::vector<Expression<T>*>::size_type i = 0; i < elements.size(); ++i) {
        if (i != 0)
            out << ',';
        elements[i]->print(out);
    }
    return out << ']';
}

} // namespace QuorelScript

#endif
