// SPDX-License-Identifier: MIT
#include "expr/PathList.hpp"

#include "expr/ExpressionVector.hpp"

#include <ostream>

namespace QuorelScript {

PathList* clonePathList(const PathList& list) {
    OwnedPathList copy(new PathList);
    appendClones(list, *copy);
    return copy.release();
}

std::ostream& printPathList(std::ostream& out, const PathList& list) {
    return printBracketed(out, list);
}

} // namespace QuorelScript
