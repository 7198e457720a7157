// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_EXPRESSIONLISTAPPEND_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_EXPRESSIONLISTAPPEND_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"
#include "grammar/Owned.hpp"
#include "grammar/actions/OperationTraits.hpp"

namespace QuorelScript {

template <class T>
struct ExpressionListAppend;

// Adds one more element at the end of a path list; the result is the same list.
template <>
struct ExpressionListAppend<Path> : BinaryOperands<PathList, Expression<Path>, PathList> {
    static Owned<PathList> build(Owned<PathList> list, Owned<Expression<Path>> element) {
        pushOwned(*list, element.release());
        return list;
    }
};

template <>
struct Operation<ExpressionListAppend<Path>> : ExpressionListAppend<Path> {};

} // namespace QuorelScript

#endif
