// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "host/textOrEmpty.hpp"

#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace {

// The length of the character that starts at `chars` (not at its end) in the
// current locale. A byte that starts no valid character counts as one.
std::size_t characterLength(const char* chars, std::mbstate_t& state) {
    const std::size_t length = std::mbrlen(chars, strnlen(chars, MB_CUR_MAX), &state);
    if (length == static_cast<std::size_t>(-1) || length == static_cast<std::size_t>(-2)) {
        state = std::mbstate_t();
        return 1;
    }
    return length;
}

} // namespace

// Only positions where a character begins are tried, so a needle never
// matches the trailing bytes of one character and the leading ones of the next.
// A null haystack has no position to return; a null needle is empty.
char* hbMultiByteStrStr(char* haystack, const char* needle) {
    if (haystack == nullptr)
        return nullptr;
    needle = QuorelScript::textOrEmpty(needle);
    const std::size_t needleLength = std::strlen(needle);
    std::mbstate_t state = std::mbstate_t();
    for (char* position = haystack;; position += characterLength(position, state)) {
        if (std::strncmp(position, needle, needleLength) == 0)
            return position;
        if (*position == '\0')
            return nullptr;
    }
}
