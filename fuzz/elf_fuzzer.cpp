// SPDX-License-Identifier: MIT
// Fuzz target: the input is a file that qxqr deps reads as ELF. Every way a
// file can be malformed (cut anywhere, offsets and sizes beyond its end,
// string indices out of range, either class and byte order) must end in
// an ElfError, or in what the file says, and never read outside it.
#include "ElfObject.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        qxqr::ElfObject object = qxqr::readElfMemory(reinterpret_cast<const char*>(data), size);
        // Touch every string, so that one read from outside the file shows.
        std::size_t length = object.interpreter.value_or("").size() + object.soname.value_or("").size() +
                             object.rpath.value_or("").size() + object.runpath.value_or("").size();
        for (const std::string& needed : object.needed)
            length += needed.size();
        // Strings longer than the whole file were read from outside it. The
        // fuzzer reports only a crash, so this must be one.
        if (length > size)
            std::abort();
        return 0;
    } catch (const qxqr::ElfError&) {
        return 0;
    }
}
