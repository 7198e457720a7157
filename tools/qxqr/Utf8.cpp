// SPDX-License-Identifier: MIT
#include "Utf8.hpp"

namespace qxqr {

namespace {

// The well-formed sequences by their lead byte. The range of the second
// byte is what rules out overlong forms (after E0 and F0), surrogates (after
// ED) and code points beyond U+10FFFF (after F4); every further byte is a
// continuation byte, 80 to BF.
struct Sequence {
    unsigned char leadFirst;
    unsigned char leadLast;
    unsigned char secondFirst;
    unsigned char secondLast;
    std::size_t length;
};

const Sequence sequences[] = {
    {0x00, 0x7F, 0x00, 0x00, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool within(char byte, unsigned char first, unsigned char last) {
    unsigned char value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

bool continues(const std::string& text, std::size_t position, const Sequence& sequence) {
    if (text.size() - position < sequence.length)
        return false;
    if (sequence.length > 1 && !within(text[position + 1], sequence.secondFirst, sequence.secondLast))
        return false;
    for (std::size_t offset = 2; offset < sequence.length; ++offset)
        if (!within(text[position + offset], 0x80, 0xBF))
            return false;
    return true;
}

} // namespace

std::size_t utf8CharacterLength(const std::string& text, std::size_t position) {
    for (const Sequence& sequence : sequences)
        if (within(text[position], sequence.leadFirst, sequence.leadLast))
            return continues(text, position, sequence) ? sequence.length : 0;
    return 0;
}

bool isValidUtf8(const std::string& text) {
    for (std::size_t position = 0; position < text.size();) {
        std::size_t length = utf8CharacterLength(text, position);
        if (length == 0)
            return false;
        position += length;
    }
    return true;
}

} // namespace qxqr
