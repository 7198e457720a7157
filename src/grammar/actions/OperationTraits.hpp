// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_OPERATIONTRAITS_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_OPERATIONTRAITS_HPP

#include "expr/AndExpression.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"
#include "grammar/Owned.hpp"
#include "rules/Rule.hpp"

#include <utility>

namespace QuorelScript {

// What an operation of the grammar takes from the operand stacks (Operand,
// or Left and Right) and what it yields (Result), with `build`, which makes
// the result from the popped operands. Specialized for every operation that
// the push actions perform.
template <class X>
struct Operation;

// The operand types and the result type of an operation of one operand.
template <class A, class R>
struct UnaryOperands {
    using Operand = A;
    using Result = R;
};

// The operand types and the result type of an operation of two operands.
template <class A, class B, class R>
struct BinaryOperands {
    using Left = A;
    using Right = B;
    using Result = R;
};

// Builds X around one operand, which X then owns.
template <class X, class R, class A>
struct UnaryNodeOperation : UnaryOperands<A, R> {
    static Owned<R> build(Owned<A> operand) { return Owned<R>(newOwner<X>(std::move(operand))); }
};

// Builds X from two operands, the one written first on the left.
template <class X, class R, class A, class B>
struct BinaryNodeOperation : BinaryOperands<A, B, R> {
    static Owned<R> build(Owned<A> left, Owned<B> right) {
        return Owned<R>(newOwner<X>(std::move(left), std::move(right)));
    }
};

template <>
struct Operation<NotExpression<bool>> : UnaryNodeOperation<NotExpression<bool>, Expression<bool>, Expression<bool>> {};

template <>
struct Operation<ExistsExpression> : UnaryNodeOperation<ExistsExpression, Expression<bool>, Expression<Path>> {};

template <>
struct Operation<AndExpression>
    : BinaryNodeOperation<AndExpression, Expression<bool>, Expression<bool>, Expression<bool>> {};

template <>
struct Operation<OrExpression>
    : BinaryNodeOperation<OrExpression, Expression<bool>, Expression<bool>, Expression<bool>> {};

template <>
struct Operation<EqualsExpression<Path>>
    : BinaryNodeOperation<EqualsExpression<Path>, Expression<bool>, Expression<Path>, Expression<Path>> {};

template <>
struct Operation<InExpression> : BinaryNodeOperation<InExpression, Expression<bool>, Expression<Path>, PathList> {};

// A rule is made from its finished condition and goes to the end of the
// parser's list of its kind. A rule record frees the parts it was built from
// when its own construction fails, so it is built empty and given its parts
// only once it exists: otherwise a failing construction would free them a
// second time.
template <class R>
struct ConditionRuleOperation : UnaryOperands<Expression<bool>, R> {
    static Owned<R> build(Owned<Expression<bool>> condition) {
        Owned<R> rule(new R(nullptr));
        rule->condition = condition.release();
        return rule;
    }
};

template <>
struct Operation<ExcludeRule> : ConditionRuleOperation<ExcludeRule> {};

template <>
struct Operation<PruneRule> : ConditionRuleOperation<PruneRule> {};

// An include rule takes its paths first and its condition second.
template <>
struct Operation<IncludeRule> : BinaryOperands<PathList, Expression<bool>, IncludeRule> {
    static Owned<IncludeRule> build(Owned<PathList> paths, Owned<Expression<bool>> condition) {
        Owned<IncludeRule> rule(new IncludeRule(nullptr, nullptr));
        rule->paths = paths.release();
        rule->condition = condition.release();
        return rule;
    }
};

} // namespace QuorelScript

#endif
