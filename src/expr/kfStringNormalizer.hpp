// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_KFSTRINGNORMALIZER_HPP
#define QXQRSCRIPT_EXPR_KFSTRINGNORMALIZER_HPP

#include <cstddef>

// Brings the characters of a normalizing string `S` (a kfPathString_) into
// a normal form. Normalizers hold no state, so one may serve any number of
// strings, which share it by reference count.
template <class S>
class kfStringNormalizer {
public:
    virtual ~kfStringNormalizer() = default;

    // Makes `target` hold the `length` characters at `chars`, normalized.
    virtual void assign(S& target, const char* chars, std::size_t length) = 0;
    // Brings `target`'s characters into normal form in place.
    virtual void normalize(S& target) = 0;
};

#endif
