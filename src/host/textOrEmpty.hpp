// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_HOST_TEXTOREMPTY_HPP
#define QXQRSCRIPT_HOST_TEXTOREMPTY_HPP

namespace QuorelScript {

// The host layer is the lowest one, so every other layer may use this.
// Every public function that takes a text takes a null pointer as the empty
// text, so that a host's missing value never crashes the library.
inline const char* textOrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

} // namespace QuorelScript

#endif
