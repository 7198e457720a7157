// SPDX-License-Identifier: MIT
#include "rules/simplifyCondition.hpp"

#include "expr/AndExpression.hpp"
#include "expr/Bindings.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/OwnedPointers.hpp"
#include "expr/exactType.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <typeinfo>
#include <unordered_set>
#include <utility>
#include <vector>

namespace QuorelScript {

namespace {

using Owned = OwnedPointer<Expression<bool>>;
using Operands = std::vector<Expression<bool>*>;

// What distinguishes an n-ary and from an n-ary or. Every rewrite of the one
// is the rewrite of the other with the kinds and the two values swapped.
template <class Multi>
struct Junction;

template <>
struct Junction<MultiAndExpression> {
    using Binary = AndExpression;
    using Dual = MultiOrExpression;
    // The value of one operand that decides the whole node.
    static constexpr bool decisive = false;
};

template <>
struct Junction<MultiOrExpression> {
    using Binary = OrExpression;
    using Dual = MultiAndExpression;
    static constexpr bool decisive = true;
};

// Whether the rewrite looks inside `node`: a junction or a negation. Any
// other node comes out of its first rewrite as itself or as a literal, and
// a second rewrite gives either back unchanged, asking nothing of the host.
// Of a null node, typeid throws std::bad_typeid, as the rewrite does.
bool isCompound(const Expression<bool>* node) {
    const std::type_info& type = typeid(*node);
    return type == typeid(NotExpression<bool>) || type == typeid(AndExpression) || type == typeid(OrExpression) ||
           type == typeid(MultiAndExpression) || type == typeid(MultiOrExpression);
}

// The compound nodes that a rewrite has already returned and that a second
// rewrite would return unchanged, asking nothing of the host. The rewrite of
// a node simplifies its operands, and then, as the rule has it, simplifies
// them again; remembering which ones need nothing more keeps that from
// doubling the work at every level of nesting. Kept while one rewrite runs.
// Only compound nodes are kept: the others need no remembering, and a long
// junction has many of them.
class SimplifiedNodes {
public:
    // The set of the rewrite that is running, if one is.
    static SimplifiedNodes*& current() {
        thread_local SimplifiedNodes* running = nullptr;
        return running;
    }

    bool contains(const Expression<bool>* node) const { return nodes_.count(node) != 0; }
    void add(const Expression<bool>* node) { nodes_.insert(node); }
    // A node made during the rewrite may take the place of a freed one.
    void forget(const Expression<bool>* node) { nodes_.erase(node); }

private:
    std::unordered_set<const Expression<bool>*> nodes_;
};

// Marks `node`, just made by the rewrite, as not simplified yet.
template <class Node>
Node* made(Node* node) {
    SimplifiedNodes* simplified = SimplifiedNodes::current();
    if (simplified != nullptr && isCompound(node))
        simplified->forget(node);
    return node;
}

// Whether a rewrite of `node`, which a rewrite returned, gives it back as it is.
bool isSettled(const Expression<bool>* node, const SimplifiedNodes& simplified) {
    return !isCompound(node) || simplified.contains(node);
}

Expression<bool>* literal(bool value) {
    return made(new BooleanLiteral(value));
}

// The value of a condition without variables, which depends on nothing the
// bindings of a query could supply.
bool valueOf(const Expression<bool>& condition) {
    return condition.evaluate(Bindings());
}

// A new not over `operand`, which it owns also when the allocation fails.
Expression<bool>* negated(Expression<bool>* operand) {
    return made(newOwner<NotExpression<bool>>(Owned(operand)));
}

// Operands on their way from one node's vector into another's, owned until
// they arrive, so that a rewrite that fails half-way leaks nothing.
using OwnedOperands = std::vector<Owned>;

// Takes every operand out of `operands`, which is left empty, in order.
OwnedOperands takeAll(Operands& operands) {
    OwnedOperands taken;
    taken.reserve(operands.size());
    for (Expression<bool>*& operand : operands)
        taken.emplace_back(std::exchange(operand, nullptr));
    operands.clear();
    return taken;
}

// Gives the operands back to `operands`, which is empty, in order.
void giveAll(OwnedOperands& source, Operands& operands) {
    operands.reserve(source.size());
    for (Owned& operand : source)
        operands.push_back(operand.release());
}

// Appends `operand` to `target`, or, when it is a two-operand node of the
// same kind, its operands left to right, and so on down: a chain of any
// length is walked with a stack of its own, not by recursion.
template <class Multi>
void appendSpliced(Multi& target, Owned operand) {
    using Binary = typename Junction<Multi>::Binary;
    OwnedOperands pending;
    pending.push_back(std::move(operand));
    while (!pending.empty()) {
        Owned next = std::move(pending.back());
        pending.pop_back();
        if (!isExactly<Binary>(*next)) {
            target.append(next.release());
            continue;
        }
        // Room first, so that no operand is out of the node and not yet in
        // the stack when an allocation fails.
        pending.reserve(pending.size() + 2);
        Binary& binary = static_cast<Binary&>(*next);
        pending.emplace_back(binary.releaseRight());
        pending.emplace_back(binary.releaseLeft());
    }
}

// Simplifies every operand; an operand that becomes a node of the same kind
// gives up its operands in its place, and they are simplified in turn. The
// operands still to look at wait on a stack, last first, so each one is moved
// a constant number of times.
template <class Multi>
void flatten(Multi& node) {
    OwnedOperands pending = takeAll(node.operands());
    std::reverse(pending.begin(), pending.end());
    OwnedOperands flat;
    while (!pending.empty()) {
        Owned operand(simplifyCondition(pending.back().release()));
        pending.pop_back();
        if (!isExactly<Multi>(*operand)) {
            flat.push_back(std::move(operand));
            continue;
        }
        OwnedOperands spliced = takeAll(static_cast<Multi&>(*operand).operands());
        std::move(spliced.rbegin(), spliced.rend(), std::back_inserter(pending));
    }
    giveAll(flat, node.operands());
}

// The node under `operand` when that is a negation of a `Dual`, else null.
template <class Dual>
Dual* negatedNode(Expression<bool>& operand) {
    if (!isExactly<NotExpression<bool>>(operand))
        return nullptr;
    Expression<bool>& inner = *static_cast<NotExpression<bool>&>(operand).operand();
    return isExactly<Dual>(inner) ? static_cast<Dual*>(&inner) : nullptr;
}

// An operand not(or(a,b,...)) of an and becomes not(a),not(b),... at its
// place, each simplified as it is put there; likewise not(and(...)) in an or.
template <class Multi>
void distributeNegations(Multi& node) {
    using Dual = typename Junction<Multi>::Dual;
    OwnedOperands operands = takeAll(node.operands());
    OwnedOperands distributed;
    distributed.reserve(operands.size());
    for (Owned& operand : operands) {
        Dual* dual = negatedNode<Dual>(*operand);
        if (dual == nullptr) {
            distributed.push_back(std::move(operand));
            continue;
        }
        for (Expression<bool>*& dualOperand : dual->operands()) {
            Owned negation(simplifyCondition(negated(std::exchange(dualOperand, nullptr))));
            distributed.push_back(std::move(negation));
        }
        operand.reset();
    }
    giveAll(distributed, node.operands());
}

// Simplifies every operand once more; the deciding value ends the walk with
// that value, the other one is dropped. Returns the literal that replaces
// the node, or null when the node stands.
template <class Multi>
Expression<bool>* dropLiterals(Multi& node) {
    const bool decisive = Junction<Multi>::decisive;
    OwnedOperands operands = takeAll(node.operands());
    OwnedOperands undecided;
    for (Owned& operand : operands) {
        Owned simplified(simplifyCondition(operand.release()));
        if (!isExactly<BooleanLiteral>(*simplified)) {
            undecided.push_back(std::move(simplified));
            continue;
        }
        if (static_cast<const BooleanLiteral&>(*simplified).value() == decisive)
            return literal(decisive);
    }
    giveAll(undecided, node.operands());
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
    std::unique_ptr<Multi> node(made(new Multi));
    appendSpliced(*node, std::move(binary));
    return simplifyJunction(std::move(node));
}

Expression<bool>* simplifyNegation(std::unique_ptr<NotExpression<bool>> node) {
    node->adoptOperand(simplifyCondition(node->releaseOperand()));
    Expression<bool>& operand = *node->operand();
    if (isExactly<NotExpression<bool>>(operand))
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

namespace {

// A rewrite again of what a rewrite returned gives it back unchanged when
// nothing in it would be spliced, distributed or rewritten: a literal, a
// node of another kind, a not over such a node, or an n-ary node over such
// nodes of which none is of its own kind or a negation of the other kind.
template <class Multi>
bool isStableJunction(const Multi& node, const SimplifiedNodes& simplified) {
    using Dual = typename Junction<Multi>::Dual;
    for (Expression<bool>* operand : node.operands())
        if (!isSettled(operand, simplified) || isExactly<Multi>(*operand) || negatedNode<Dual>(*operand) != nullptr)
            return false;
    return true;
}

bool isStable(const Expression<bool>& node, const SimplifiedNodes& simplified) {
    if (isExactly<NotExpression<bool>>(node))
        return isSettled(static_cast<const NotExpression<bool>&>(node).operand(), simplified);
    if (isExactly<MultiAndExpression>(node))
        return isStableJunction(static_cast<const MultiAndExpression&>(node), simplified);
    if (isExactly<MultiOrExpression>(node))
        return isStableJunction(static_cast<const MultiOrExpression&>(node), simplified);
    return !isExactly<AndExpression>(node) && !isExactly<OrExpression>(node);
}

Expression<bool>* rewrite(Expression<bool>* condition) {
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

} // namespace

Expression<bool>* simplifyCondition(Expression<bool>* condition) {
    SimplifiedNodes*& running = SimplifiedNodes::current();
    if (running == nullptr) {
        SimplifiedNodes simplified;
        running = &simplified;
        struct Finish {
            SimplifiedNodes*& running;
            ~Finish() { running = nullptr; }
        } finish{running};
        return simplifyCondition(condition);
    }
    if (isCompound(condition) && running->contains(condition))
        return condition;
    Owned simplified(rewrite(condition));
    // Remembering may run out of memory too; the result is freed then.
    if (isCompound(simplified.get()) && isStable(*simplified, *running))
        running->add(simplified.get());
    return simplified.release();
}

} // namespace QuorelScript
