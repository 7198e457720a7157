// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_OWNEDPOINTERS_HPP
#define QXQRSCRIPT_EXPR_OWNEDPOINTERS_HPP

#include <memory>
#include <vector>

namespace QuorelScript {

// How the library owns through plain pointers. Its data keeps them plain: a
// node points to its operands, a vector holds owning pointers
// (`std::vector<T*>`: an operand stack) and a heap vector of owning pointers
// is held by one pointer (`std::vector<T*>*`: a path list, the operands of an
// n-ary node, a rule list). Whoever holds such a vector owns its elements,
// and the vector too when it is on the heap.
//
// Deleting: deleteOwned deletes an object, and a vector of owning pointers
// together with its elements, in vector order; a null pointer, as an element
// or as the vector, is skipped. OwnedPointer<T> is the std::unique_ptr that
// deletes so, for an object on its way from one owner to the next.
//
// Handing over: pushOwned and pushOwnedCreatingList take ownership of the
// element also when the vector cannot grow or be created: the element is then
// deleted, the vector keeps what it had, and std::bad_alloc passes on, so
// that no caller ever frees what it handed over. newOwner does the same for a
// new object built around the parts it takes over.
//
// Nothing here allocates but the vectors' growth and those new objects.

template <class T>
struct OwnedListDeleter;

// The deleter of OwnedPointer<T>: a vector of owning pointers goes with its elements.
template <class T>
struct OwnedDeleter {
    using type = std::default_delete<T>;
};

template <class T>
struct OwnedDeleter<std::vector<T*>> {
    using type = OwnedListDeleter<T>;
};

// Sole ownership of `T` between two owners.
template <class T>
using OwnedPointer = std::unique_ptr<T, typename OwnedDeleter<T>::type>;

// Deletes `object`, a vector of owning pointers with its elements; null is allowed.
template <class T>
void deleteOwned(T* object) {
    if (object != nullptr)
        typename OwnedDeleter<T>::type()(object);
}

// Deletes every element, in vector order, and leaves their pointers in place.
template <class T>
void deleteEach(const std::vector<T*>& elements) {
    for (T* element : elements)
        deleteOwned(element);
}

template <class T>
struct OwnedListDeleter {
    void operator()(std::vector<T*>* list) const {
        deleteEach(*list);
        delete list;
    }
};

// Appends `element`, whose ownership passes also when the push fails.
template <class T>
void pushOwned(std::vector<T*>& elements, T* element) {
    OwnedPointer<T> owned(element);
    elements.push_back(nullptr); // the slot first: only this may fail
    elements.back() = owned.release();
}

// Appends `element` to the heap vector `list`, which the first element
// creates; ownership passes also when either step fails.
template <class T>
void pushOwnedCreatingList(std::vector<T*>*& list, T* element) {
    OwnedPointer<T> owned(element);
    if (list == nullptr)
        list = new std::vector<T*>;
    pushOwned(*list, owned.release());
}

// A new `Node` built from the plain pointers of `parts`, which it takes over;
// should building it fail, the parts are deleted. Node's constructor must
// only store the parts, so that they are never deleted twice. A null part
// stays null.
template <class Node, class... Parts>
Node* newOwner(OwnedPointer<Parts>... parts) {
    Node* node = new Node(parts.get()...);
    (static_cast<void>(parts.release()), ...);
    return node;
}

} // namespace QuorelScript

#endif
