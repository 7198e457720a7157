// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_KFPATHSTRING_HPP
#define QXQRSCRIPT_EXPR_KFPATHSTRING_HPP

#include "expr/kfStringNormalizer.hpp"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <utility>

// A string of type `S` whose assignments pass through a normalizer, held by a
// shared handle. With an empty handle it behaves as a plain string. Copies
// share the handle.
template <class S>
class kfPathString_ {
public:
    using string_type = S;
    using Normalizer = kfStringNormalizer<kfPathString_>;
    using NormalizerHandle = boost::shared_ptr<Normalizer>;

    // Takes the string's handle away for the lifetime of this object and
    // gives it back at the end, also when an exception passes. Meanwhile the
    // string's assignments are plain ones, so that a normalizer's own edits
    // are not routed back into a normalizer.
    class DetachedNormalizer {
    public:
        explicit DetachedNormalizer(kfPathString_& target) : target_(target) { normalizer_.swap(target.normalizer_); }
        DetachedNormalizer(const DetachedNormalizer&) = delete;
        DetachedNormalizer& operator=(const DetachedNormalizer&) = delete;
        ~DetachedNormalizer() { target_.normalizer_.swap(normalizer_); }

        // The detached normalizer; null when the string had none.
        Normalizer* get() const { return normalizer_.get(); }

    private:
        kfPathString_& target_;
        NormalizerHandle normalizer_;
    };

    kfPathString_() = default;
    explicit kfPathString_(const NormalizerHandle& normalizer) : normalizer_(normalizer) {}

    // Makes the string hold the `length` characters at `chars`: through the
    // normalizer's assign when there is one, plainly otherwise.
    void assign(const char* chars, std::size_t length) {
        DetachedNormalizer detached(*this);
        if (Normalizer* normalizer = detached.get())
            normalizer->assign(*this, chars, length);
        else
            value_.assign(chars, length);
    }

    // The characters. Edits made through the non-const access bypass the
    // normalizer; whoever makes them calls the normalizer's normalize after.
    const S& str() const { return value_; }
    S& str() { return value_; }
    const char* c_str() const { return value_.c_str(); }
    std::size_t length() const { return value_.length(); }

    const NormalizerHandle& normalizer() const { return normalizer_; }
    void setNormalizer(const NormalizerHandle& normalizer) { normalizer_ = normalizer; }

private:
    S value_;
    NormalizerHandle normalizer_;
};

#endif
