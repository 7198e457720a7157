// SPDX-License-Identifier: MIT
#ifndef QXQR_BASE64_HPP
#define QXQR_BASE64_HPP

#include <string>

namespace qxqr {

// `bytes` in the standard base64 alphabet (A-Z a-z 0-9 + /), padded with
// '=' to a multiple of four characters.
std::string base64(const std::string& bytes);

} // namespace qxqr

#endif
