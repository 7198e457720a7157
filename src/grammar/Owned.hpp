// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_OWNED_HPP
#define QXQRSCRIPT_GRAMMAR_OWNED_HPP

#include "expr/PathList.hpp"

#include <memory>

namespace QuorelScript {

// How an owner gets rid of what the parser builds: nodes and rules are
// deleted, a path list goes together with its elements.
template <class T>
struct OwnedDeleter {
    typedef std::default_delete<T> type;
};

template <>
struct OwnedDeleter<PathList> {
    typedef PathListDeleter type;
};

// Sole ownership of something the parse actions build, while it is between
// the stacks and its next owner.
template <class T>
using Owned = std::unique_ptr<T, typename OwnedDeleter<T>::type>;

} // namespace QuorelScript

#endif
