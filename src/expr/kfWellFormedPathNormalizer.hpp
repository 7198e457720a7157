#ifndef QXQRSCRIPT_EXPR_KFWELLFORMEDPATHNORMALIZER_HPP
#define QXQRSCRIPT_EXPR_KFWELLFORMEDPATHNORMALIZER_HPP

#include "expr/kfStringNormalizer.hpp"

#include <qxqrscript/host.hpp>

#include <cstddef>
#include <cstring>

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
        collapseDoubledSeparators(target.str());
        trimLeadingWhiteSpace(target, detached.get());
        trimTrailingWhiteSpace(target, detached.get());
    }

private:
    typedef typename S::string_type string_type;
    typedef typename string_type::size_type size_type;
    typedef kfStringNormalizer<S> Normalizer;

    // The text is treated as a C string: each doubled slash loses its first
    // slash by shifting the rest, terminator included, one place left. So once
    // anything has been collapsed, a NUL inside the text ends it.
    static void collapseDoubledSeparators(string_type& text) {
        char* chars = &text[0];
        bool collapsed = false;
        for (char* hit = hbMultiByteStrStr(chars, doubledSeparator); hit != nullptr;
             hit = hbMultiByteStrStr(hit, doubledSeparator)) {
            std::memmove(hit, hit + 1, std::strlen(hit + 1) + 1);
            collapsed = true;
        }
        if (collapsed)
            text.resize(std::strlen(chars));
    }

    static void trimLeadingWhiteSpace(S& target, Normalizer* detached) {
        const size_type first = target.str().find_first_not_of(whiteSpace);
        if (first == 0)
            return;
        target.str().erase(0, first);
        normalizeOnceMore(target, detached);
    }

    static void trimTrailingWhiteSpace(S& target, Normalizer* detached) {
        const size_type last = target.str().find_last_not_of(whiteSpace);
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

    static inline char doubledSeparator[] = "//";
    // Exactly these seven characters: backspace belongs to the set on purpose,
    // while other control characters, such as bell or escape, do not.
    static inline char whiteSpace[] = " \t\v\b\n\r\f";
};

#endif
