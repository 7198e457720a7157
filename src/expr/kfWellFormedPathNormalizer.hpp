// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_KFWELLFORMEDPATHNORMALIZER_HPP
#define QXQRSCRIPT_EXPR_KFWELLFORMEDPATHNORMALIZER_HPP

#include "expr/kfStringNormalizer.hpp"
#include "expr/pathTextNormalForm.hpp"

#include <cstddef>

// The path normalizer: collapses every run of slashes into one and removes
// the white space around the path. Nothing else is touched: dot and dot-dot
// components, a trailing slash, letter case, backslashes and white space
// inside the path stay as they are.
template <class S>
class kfWellFormedPathNormalizer : public kfStringNormalizer<S> {
public:
    void assign(S& target, const char* chars, std::size_t length) override {
        // The target's own assignment hands the characters to the target's
        // normalizer with the handle detached, or stores them plainly.
        target.assign(chars, length);
        normalize(target);
    }

    void normalize(S& target) override {
        typename S::DetachedNormalizer detached(target);
        QuorelScript::collapseDoubledSlashes(target.str());
        trimLeadingWhiteSpace(target, detached.get());
        trimTrailingWhiteSpace(target, detached.get());
    }

private:
    using string_type = typename S::string_type;
    using size_type = typename string_type::size_type;
    using Normalizer = kfStringNormalizer<S>;

    static void trimLeadingWhiteSpace(S& target, Normalizer* detached) {
        const size_type first = target.str().find_first_not_of(QuorelScript::pathWhiteSpace);
        if (first == 0)
            return;
        target.str().erase(0, first);
        normalizeOnceMore(target, detached);
    }

    static void trimTrailingWhiteSpace(S& target, Normalizer* detached) {
        const size_type last = target.str().find_last_not_of(QuorelScript::pathWhiteSpace);
        const size_type kept = last == string_type::npos ? 0 : last + 1;
        if (kept == target.str().length())
            return;
        target.str().erase(kept);
        normalizeOnceMore(target, detached);
    }

    // The target's handle is still detached here, so the nested pass makes no
    // further nested passes of its own.
    static void normalizeOnceMore(S& target, Normalizer* detached) {
        if (detached != nullptr)
            detached->normalize(target);
    }
};

#endif
