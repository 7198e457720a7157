// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_EXACTTYPE_HPP
#define QXQRSCRIPT_EXPR_EXACTTYPE_HPP

#include <typeinfo>

namespace QuorelScript {

// Whether `node` is of type T itself, not of a class derived from it. The
// passes over a tree that treat some node classes apart ask it this way, so
// that a class a host derives from one of them keeps its own behaviour.
template <class T, class Node>
bool isExactly(const Node& node) {
    return typeid(node) == typeid(T);
}

// `node` as a T, if that is its exact type; else null.
template <class T, class Node>
T* asExactly(Node* node) {
    return node != nullptr && isExactly<T>(*node) ? static_cast<T*>(node) : nullptr;
}

} // namespace QuorelScript

#endif
