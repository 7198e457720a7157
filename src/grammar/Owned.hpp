// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_OWNED_HPP
#define QXQRSCRIPT_GRAMMAR_OWNED_HPP

#include "expr/OwnedPointers.hpp"

namespace QuorelScript {

// Sole ownership of something the parse actions build, while it is between
// the stacks and its next owner: a node or a rule alone, a path list
// together with its elements.
template <class T>
using Owned = OwnedPointer<T>;

} // namespace QuorelScript

#endif
