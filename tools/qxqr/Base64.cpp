// SPDX-License-Identifier: MIT
#include "Base64.hpp"

#include <cstdint>

namespace qxqr {

namespace {

const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The 24 bits of up to three bytes from `position`, missing bytes as zero.
std::uint32_t group(const std::string& bytes, std::size_t position) {
    std::uint32_t bits = 0;
    for (std::size_t offset = 0; offset < 3; ++offset) {
        unsigned char byte =
            position + offset < bytes.size() ? static_cast<unsigned char>(bytes[position + offset]) : 0;
        bits = bits << 8 | byte;
    }
    return bits;
}

} // namespace

std::string base64(const std::string& bytes) {
    std::string text;
    for (std::size_t position = 0; position < bytes.size(); position += 3) {
        std::uint32_t bits = group(bytes, position);
        std::size_t present = bytes.size() - position < 3 ? bytes.size() - position : 3;
        // n bytes fill n + 1 characters; '=' pads the group to four.
        for (std::size_t character = 0; character < 4; ++character)
            text += character <= present ? alphabet[bits >> (18 - 6 * character) & 0x3F] : '=';
    }
    return text;
}

} // namespace qxqr
