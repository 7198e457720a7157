// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_PATHLIST_HPP
#define QXQRSCRIPT_EXPR_PATHLIST_HPP

#include "expr/Expression.hpp"
#include "expr/OwnedPointers.hpp"
#include "expr/Path.hpp"

#include <iosfwd>
#include <vector>

namespace QuorelScript {

// A list of path expressions in script order: the right side of "in" and the
// paths of an include rule. Whoever holds the list owns it and its elements.
using PathList = std::vector<Expression<Path>*>;

// Deletes every element, then the list; a null list is allowed.
inline void deletePathList(PathList* list) {
    deleteOwned(list);
}
// A list held together with its elements.
using OwnedPathList = OwnedPointer<PathList>;

// A new list that reserves the source's size and receives the elements' clones in order.
PathList* clonePathList(const PathList& list);
// "[a,b,...]"
std::ostream& printPathList(std::ostream& out, const PathList& list);

} // namespace QuorelScript

#endif
