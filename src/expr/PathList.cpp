#include "expr/PathList.hpp"

#include <ostream>

namespace QuorelScript {

void deletePathList(PathList* list) {
    if (list == nullptr)
        return;
    for (Expression<Path>* element : *list)
        delete element;
    delete list;
}

PathList* clonePathList(const PathList& list) {
    OwnedPathList copy(new PathList);
    // With the room reserved first, no append can throw and lose a clone.
    copy->reserve(list.size());
    for (const Expression<Path>* element : list)
        copy->push_back(element->clone());
    return copy.release();
}

std::ostream& printPathList(std::ostream& out, const PathList& list) {
    out << '[';
    for (PathList::size_type i = 0; i < list.size(); ++i) {
        if (i != 0)
            out << ',';
        list[i]->print(out);
    }
    return out << ']';
}

} // namespace QuorelScript
