// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_EXPRESSIONLISTCREATE_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_EXPRESSIONLISTCREATE_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"
#include "grammar/Owned.hpp"
#include "grammar/actions/OperationTraits.hpp"

namespace QuorelScript {

template <class T>
struct ExpressionListCreate;

// Starts a path list with its first element.
template <>
struct ExpressionListCreate<Path> : UnaryOperands<Expression<Path>, PathList> {
    static Owned<PathList> build(Owned<Expression<Path>> first) {
        Owned<PathList> list(new PathList);
        pushOwned(*list, first.release());
        return list;
    }
};

template <>
struct Operation<ExpressionListCreate<Path>> : ExpressionListCreate<Path> {};

} // namespace QuorelScript

#endif
