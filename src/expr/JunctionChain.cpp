// SPDX-License-Identifier: MIT
#include "expr/JunctionChain.hpp"

#include "expr/AndExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/OwnedPointers.hpp"
#include "expr/exactType.hpp"

#include <cstddef>
#include <memory>
#include <ostream>
#include <type_traits>

namespace QuorelScript {

namespace {

// One link of a chain, whichever of the two kinds it is; false when the node
// it was made from is no link. `Node` is Expression<bool>, or a const one
// for the walks that change nothing.
template <class Node>
class Link {
    template <class T>
    using Like = std::conditional_t<std::is_const<Node>::value, const T, T>;

public:
    explicit Link(Node* node) : and_(asExactly<Like<AndExpression>>(node)), or_(asExactly<Like<OrExpression>>(node)) {}

    explicit operator bool() const { return and_ != nullptr || or_ != nullptr; }

    Expression<bool>* left() const {
        return apply([](auto& link) { return link.left(); });
    }
    Expression<bool>* right() const {
        return apply([](auto& link) { return link.right(); });
    }

    // The value of the left operand that settles the link without the right one.
    bool decisive() const {
        return apply([](auto& link) { return std::decay_t<decltype(link)>::decisive; });
    }
    const char* opening() const {
        return apply([](auto& link) -> const char* { return std::decay_t<decltype(link)>::opening; });
    }

    Expression<bool>* releaseRight() const {
        return apply([](auto& link) { return link.releaseRight(); });
    }
    void adoptRight(Expression<bool>* right) const {
        apply([right](auto& link) { link.adoptRight(right); });
    }

    // A new link of the same kind holding a copy of the left operand and no
    // right operand yet.
    Expression<bool>* copyWithoutRight() const {
        return apply([](auto& link) -> Expression<bool>* {
            using Link = std::decay_t<decltype(link)>;
            return newOwner<Link>(OwnedPointer<Expression<bool>>(link.left()->clone()),
                                  OwnedPointer<Expression<bool>>());
        });
    }

private:
    // Calls `operation` with the link as its own class.
    template <class Operation>
    decltype(auto) apply(Operation operation) const {
        return and_ != nullptr ? operation(*and_) : operation(*or_);
    }

    Like<AndExpression>* and_;
    Like<OrExpression>* or_;
};

using ReadLink = Link<const Expression<bool>>;
using WriteLink = Link<Expression<bool>>;

} // namespace

bool evaluateChain(const Expression<bool>& first, const Bindings& bindings) {
    const Expression<bool>* node = &first;
    for (ReadLink link(node); link; link = ReadLink(node)) {
        if (link.left()->evaluate(bindings) == link.decisive())
            return link.decisive();
        node = link.right();
    }
    return node->evaluate(bindings);
}

// The copy is built from the top: each link's copy is hung under the one
// before it as soon as it exists, so the first copy owns all that was made
// whenever a copy fails.
Expression<bool>* cloneChain(const Expression<bool>& first) {
    std::unique_ptr<Expression<bool>> copy;
    Expression<bool>* lastCopied = nullptr;
    const Expression<bool>* node = &first;
    for (ReadLink link(node); link; link = ReadLink(node)) {
        Expression<bool>* linkCopy = link.copyWithoutRight();
        if (lastCopied == nullptr)
            copy.reset(linkCopy);
        else
            WriteLink(lastCopied).adoptRight(linkCopy);
        lastCopied = linkCopy;
        node = link.right();
    }
    WriteLink(lastCopied).adoptRight(node->clone());
    return copy.release();
}

std::ostream& printChain(const Expression<bool>& first, std::ostream& out) {
    const Expression<bool>* node = &first;
    std::size_t open = 0;
    for (ReadLink link(node); link; link = ReadLink(node)) {
        link.left()->print(out << link.opening()) << ',';
        node = link.right();
        ++open;
    }
    node->print(out);
    for (; open > 0; --open)
        out << ')';
    return out;
}

bool chainHasVariables(const Expression<bool>& first) {
    const Expression<bool>* node = &first;
    for (ReadLink link(node); link; link = ReadLink(node)) {
        if (link.left()->hasVariables())
            return true;
        node = link.right();
    }
    return node->hasVariables();
}

void substituteChain(Expression<bool>& first, const Bindings& bindings) {
    Expression<bool>* node = &first;
    for (WriteLink link(node); link; link = WriteLink(node)) {
        link.left()->substituteVariables(bindings);
        node = link.right();
    }
    node->substituteVariables(bindings);
}

// On the way down each link's right operand is turned round to point at the
// link above it, so that the way back up needs no stack either. Every link
// is deleted with no right operand left, so its own destructor does not walk
// again; its base deletes its left operand.
void deleteChain(Expression<bool>* rest) {
    Expression<bool>* above = nullptr;
    for (WriteLink link(rest); link; link = WriteLink(rest)) {
        Expression<bool>* below = link.releaseRight();
        link.adoptRight(above);
        above = rest;
        rest = below;
    }
    delete rest;
    while (above != nullptr) {
        Expression<bool>* next = WriteLink(above).releaseRight();
        delete above;
        above = next;
    }
}

} // namespace QuorelScript
