// SPDX-License-Identifier: MIT
// Fuzz target: the input is a file that qxqr deps reads as ELF. Every way a
// file can be malformed (cut anywhere, offsets and sizes beyond its end,
// string indices out of range, either class and byte order) must end in
// an ElfError, or in what the file says, and never read outside it.
#include "ElfObject.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

// Every string the reader returns is bytes of the file ended by a NUL byte
// of the file. Their total length proves nothing: many entries may name
// the same string, and segments may overlap.
void requireReadFromFile(std::string_view file, const std::string& text) {
    if (file.find(std::string_view(text.c_str(), text.size() + 1)) == std::string_view::npos)
        std::abort(); // the fuzzer reports only a crash, so this must be one
}

void requireReadFromFile(std::string_view file, const std::optional<std::string>& text) {
    if (text)
        requireReadFromFile(file, *text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    try {
        qxqr::ElfObject object = qxqr::readElfMemory(file.data(), file.size());
        for (const auto* text : {&object.interpreter, &object.soname, &object.rpath, &object.runpath})
            requireReadFromFile(file, *text);
        for (const std::string& needed : object.needed)
            requireReadFromFile(file, needed);
        return 0;
    } catch (const qxqr::ElfError&) {
        return 0;
    }
}
