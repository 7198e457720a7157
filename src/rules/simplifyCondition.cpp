#include "rules/simplifyCondition.hpp"

#include "expr/AndExpression.hpp"
#include "expr/Bindings.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"

#include <memory>
#include <typeinfo>

namespace QuorelScript {

namespace {

typedef std::unique_ptr<Expression<bool>> Owned;
typedef std::vector<Expression<bool>*> Operands;

// What distinguishes an n-ary and from an n-ary or. Every rewrite of the one
// is the rewrite of the other with the kinds and the two values swapped.
template <class Multi>
struct Junction;

template <>
struct Junction<MultiAndExpression> {
    typedef AndExpression Binary;
    typedef MultiOrExpression Dual;
    // The value of one operand that decides the whole node.
    static constexpr bool decisive = false;
};

template <>
struct Junction<MultiOrExpression> {
    typedef OrExpression Binary;
    typedef MultiAndExpression Dual;
    static constexpr bool decisive = true;
};

template <class Node>
bool isA(const Expression<bool>& node) {
    return typeid(node) == typeid(Node);
}

Expression<bool>* literal(bool value) {
    return new BooleanLiteral(value);
}

// The value of a condition without variables, which depends on nothing the
// bindings of a query could supply.
bool valueOf(const Expression<bool>& condition) {
    return condition.evaluate(Bindings());
}

// A new not over `operand`, which it owns also when the allocation fails.
Expression<bool>* negated(Expression<bool>* operand) {
    Owned owned(operand);
    Expression<bool>* node = new NotExpression<bool>(owned.get());
    owned.release();
    return node;
}

// Simplifies the operand at `index` where it stands. The slot is emptied
// first, so that a failing rewrite, which frees the operand, leaves nothing
// to be freed a second time.
void simplifyAt(Operands& operands, Operands::size_type index) {
    Expression<bool>* operand = operands[index];
    operands[index] = nullptr;
    operands[index] = simplifyCondition(operand);
}

// Inserts `operand` before `position`, taking ownership also when the
// insertion fails; returns the position after it.
Operands::iterator insertOwned(Operands& operands, Operands::iterator position, Expression<bool>* operand) {
    Owned owned(operand);
    position = operands.insert(position, operand);
    owned.release();
    return position + 1;
}

// Replaces the operand at `index` by the operands of `child`, which that
// slot holds, in their order, and frees the emptied child.
template <class Multi>
void spliceAt(Operands& operands, Operands::size_type index, Multi& child) {
    Operands& grandchildren = child.operands();
    const auto position = operands.begin() + static_cast<Operands::difference_type>(index);
    operands.insert(position + 1, grandchildren.begin(), grandchildren.end());
    grandchildren.clear();
    delete &child;
    operands.erase(operands.begin() + static_cast<Operands::difference_type>(index));
}

// Appends `operand` to `target`, or, when it is a two-operand node of the
// same kind, its operands left to right, recursively.
template <class Multi>
void appendSpliced(Multi& target, Owned operand) {
    typedef typename Junction<Multi>::Binary Binary;
    if (!isA<Binary>(*operand)) {
        target.append(operand.release());
        return;
    }
    Binary& binary = static_cast<Binary&>(*operand);
    appendSpliced(target, Owned(binary.releaseLeft()));
    appendSpliced(target, Owned(binary.releaseRight()));
}

// Simplifies every operand; an operand that becomes a node of the same kind
// gives up its operands to this one, and they are looked at in turn.
template <class Multi>
void flatten(Multi& node) {
    Operands& operands = node.operands();
    for (Operands::size_type i = 0; i < operands.size();) {
        simplifyAt(operands, i);
        if (isA<Multi>(*operands[i]))
            spliceAt(operands, i, static_cast<Multi&>(*operands[i]));
        else
            ++i;
    }
}

// The node under `operand` when that is a negation of a `Dual`, else null.
template <class Dual>
Dual* negatedNode(Expression<bool>& operand) {
    if (!isA<NotExpression<bool>>(operand))
        return nullptr;
    Expression<bool>& inner = *static_cast<NotExpression<bool>&>(operand).operand();
    return isA<Dual>(inner) ? static_cast<Dual*>(&inner) : nullptr;
}

// An operand not(or(a,b,...)) of an and becomes not(a),not(b),... at its
// place; likewise not(and(...)) in an or.
template <class Multi>
void distributeNegations(Multi& node) {
    typedef typename Junction<Multi>::Dual Dual;
    Operands& operands = node.operands();
    for (auto position = operands.begin(); position != operands.end();) {
        Dual* dual = negatedNode<Dual>(**position);
        if (dual == nullptr) {
            ++position;
            continue;
        }
        const Owned discarded(*position);
        position = operands.erase(position);
        for (Expression<bool>*& dualOperand : dual->operands()) {
            Expression<bool>* moved = dualOperand;
            dualOperand = nullptr;
            position = insertOwned(operands, position, simplifyCondition(negated(moved)));
        }
    }
}

// Simplifies every operand once more; the deciding value ends the walk with
// that value, the other one is dropped. Returns the literal that replaces
// the node, or null when the node stands.
template <class Multi>
Expression<bool>* dropLiterals(Multi& node) {
    const bool decisive = Junction<Multi>::decisive;
    Operands& operands = node.operands();
    for (Operands::size_type i = 0; i < operands.size();) {
        simplifyAt(operands, i);
        if (!isA<BooleanLiteral>(*operands[i])) {
            ++i;
            continue;
        }
        if (static_cast<const BooleanLiteral&>(*operands[i]).value() == decisive)
            return literal(decisive);
        delete operands[i];
        operands.erase(operands.begin() + static_cast<Operands::difference_type>(i));
    }
    return nullptr;
}

template <class Multi>
Expression<bool>* simplifyJunction(std::unique_ptr<Multi> node) {
    flatten(*node);
    distributeNegations(*node);
    if (Expression<bool>* decided = dropLiterals(*node))
        return decided;
    Operands& operands = node->operands();
    if (operands.empty())
        return literal(!Junction<Multi>::decisive);
    if (operands.size() == 1) {
        Expression<bool>* only = operands.front();
        operands.front() = nullptr;
        return simplifyCondition(only);
    }
    return node.release();
}

template <class Multi>
Expression<bool>* simplifyBinaryJunction(Owned binary) {
    std::unique_ptr<Multi> node(new Multi);
    appendSpliced(*node, std::move(binary));
    return simplifyJunction(std::move(node));
}

Expression<bool>* simplifyNegation(std::unique_ptr<NotExpression<bool>> node) {
    node->adoptOperand(simplifyCondition(node->releaseOperand()));
    Expression<bool>& operand = *node->operand();
    if (isA<NotExpression<bool>>(operand))
        return simplifyCondition(static_cast<NotExpression<bool>&>(operand).releaseOperand());
    if (!operand.hasVariables())
        return literal(!valueOf(operand));
    return node.release();
}

template <class Node>
std::unique_ptr<Node> taken(Owned& condition) {
    return std::unique_ptr<Node>(static_cast<Node*>(condition.release()));
}

} // namespace

Expression<bool>* simplifyCondition(Expression<bool>* condition) {
    Owned owned(condition);
    const std::type_info& type = typeid(*condition);
    if (type == typeid(BooleanLiteral))
        return owned.release();
    if (!condition->hasVariables())
        return literal(valueOf(*condition));
    if (type == typeid(AndExpression))
        return simplifyBinaryJunction<MultiAndExpression>(std::move(owned));
    if (type == typeid(OrExpression))
        return simplifyBinaryJunction<MultiOrExpression>(std::move(owned));
    if (type == typeid(NotExpression<bool>))
        return simplifyNegation(taken<NotExpression<bool>>(owned));
    if (type == typeid(MultiAndExpression))
        return simplifyJunction(taken<MultiAndExpression>(owned));
    if (type == typeid(MultiOrExpression))
        return simplifyJunction(taken<MultiOrExpression>(owned));
    return owned.release();
}

} // namespace QuorelScript
