// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_JUNCTIONCHAIN_HPP
#define QXQRSCRIPT_EXPR_JUNCTIONCHAIN_HPP

#include "expr/Expression.hpp"

#include <iosfwd>

namespace QuorelScript {

// The operations of and and or nodes, done along a chain: a node of either
// kind, then its right operand when that is again an and or an or, and so
// on, down to the first right operand of another kind, which ends the chain.
// Each walks the chain in a loop, handing every left operand, and the last
// right operand, their share of the work; so a chain costs the stack of one
// node, however long it is. The order is that of the plain recursion: left
// operands from the first link down, then the last right operand.
//
// The links are the nodes of type AndExpression and OrExpression, which no
// class derives from; a node of any other type ends the chain and does its
// own share of the work its own way. `first` must be a link.

// The value: the first left operand that settles its link (false for an
// and, true for an or) settles the whole, and nothing after it is evaluated.
bool evaluateChain(const Expression<bool>& first, const Bindings& bindings);

// A deep copy: the left operands are copied from the first link down, then
// the last right operand. Should a copy fail, what was made is deleted.
Expression<bool>* cloneChain(const Expression<bool>& first);

// "and(" or "or(", the left operand, "," for each link, then the last right
// operand and as many ")".
std::ostream& printChain(const Expression<bool>& first, std::ostream& out);

// Whether any operand has variables, asking them in order up to the first
// that has.
bool chainHasVariables(const Expression<bool>& first);

// Substitutes the variables of every operand, in order.
void substituteChain(Expression<bool>& first, const Bindings& bindings);

// Deletes `rest` (which may be null), the right operand that a link has
// given up: when it is a link itself, its right operand first, down to the
// last one, then each link's left operand and the link, from the bottom up,
// which is the order in which nested destructors would delete them.
void deleteChain(Expression<bool>* rest);

} // namespace QuorelScript

#endif
