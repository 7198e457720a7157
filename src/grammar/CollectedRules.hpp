// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_COLLECTEDRULES_HPP
#define QXQRSCRIPT_GRAMMAR_COLLECTEDRULES_HPP

#include "grammar/Owned.hpp"

#include <cstddef>
#include <utility>
#include <vector>

namespace QuorelScript {

// The rules of one kind that a parser has collected and not yet handed
// over, in script order. The list itself is created by the first rule.
template <class R>
class CollectedRules {
public:
    using List = std::vector<R*>;

    CollectedRules() : list_(nullptr) {}
    CollectedRules(const CollectedRules&) = delete;
    CollectedRules& operator=(const CollectedRules&) = delete;
    ~CollectedRules() { deleteOwned(list_); }

    // Takes ownership, also when the append fails.
    void push(Owned<R> rule) { pushOwnedCreatingList(list_, rule.release()); }

    bool empty() const { return list_ == nullptr || list_->empty(); }
    // The list, or null before the first rule; still owned here.
    List* list() const { return list_; }
    // The most recent rule; there must be one.
    R& last() const { return *list_->back(); }

    // Gives up the list; the next rule starts a new one.
    List* release() {
        List* list = list_;
        list_ = nullptr;
        return list;
    }

    // Passes every rule, in order, to `take`, which takes its ownership,
    // and leaves the list empty.
    template <class Take>
    void handOver(Take take) {
        if (list_ == nullptr)
            return;
        std::size_t given = 0;
        try {
            for (; given < list_->size(); ++given)
                take(std::exchange((*list_)[given], nullptr));
        } catch (...) {
            // The rule whose hand-over failed went with it: keep only the rest.
            list_->erase(list_->begin(), list_->begin() + given + 1);
            throw;
        }
        list_->clear();
    }

private:
    List* list_;
};

} // namespace QuorelScript

#endif
