// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_NESTING_ADAPTER_HPP
#define QXQRSCRIPT_PELOR_NESTING_ADAPTER_HPP

#include "pelor/parser.hpp"

namespace pelor {

// How deep a grammar's recursion has gone, and how deep it may go: the
// counter shared by the nesting_adapter parsers that guard that recursion.
// It also remembers whether the limit has turned a match down since it was
// last reset, so that the grammar's user can tell a text nested too deep
// from one that is merely wrong.
class nesting_depth {
public:
    explicit nesting_depth(int limit) : limit_(limit) {}
    nesting_depth(const nesting_depth&) = delete;
    nesting_depth& operator=(const nesting_depth&) = delete;

    int limit() const { return limit_; }
    int current() const { return current_; }
    bool exceeded() const { return exceeded_; }

    // Back to the outermost level, nothing turned down; for a new text.
    void reset() {
        current_ = 0;
        exceeded_ = false;
    }

private:
    template <class E>
    friend class nesting_adapter;

    // Holds one level of the counter for as long as it exists.
    class level {
    public:
        explicit level(nesting_depth& depth) : depth_(depth) { ++depth_.current_; }
        level(const level&) = delete;
        level& operator=(const level&) = delete;
        ~level() { --depth_.current_; }

    private:
        nesting_depth& depth_;
    };

    int limit_;
    int current_ = 0;
    bool exceeded_ = false;
};

// One level of bounded nesting: matches `E` one level deeper on its counter.
// When the counter is already at its limit, it fails at once, without trying
// `E`, and records on the counter that the limit turned a match down; that
// record stays until the counter is reset. The level is given back however
// `E` ends, by a match, a failure or an exception.
//
// Put where a recursive rule descends, it bounds the stack the recursion can
// take: with the limit reached, nothing below it is entered. A parser of a
// failing alternative may still have been tried before it; the record says
// only that some text reached the limit.
template <class E>
class nesting_adapter : public parser<nesting_adapter<E>> {
public:
    nesting_adapter(nesting_depth& depth, const E& operand) : depth_(&depth), operand_(operand) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        if (depth_->current_ >= depth_->limit_) {
            depth_->exceeded_ = true;
            return false;
        }
        const nesting_depth::level descent(*depth_);
        return operand_.match(pos, end);
    }

private:
    nesting_depth* depth_;
    E operand_;
};

// `nested(depth, e)`: e, one level deeper on `depth`, if the limit allows.
template <class E>
nesting_adapter<E> nested(nesting_depth& depth, const parser<E>& operand) {
    return nesting_adapter<E>(depth, operand.derived());
}

} // namespace pelor

#endif
