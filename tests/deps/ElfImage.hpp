// SPDX-License-Identifier: MIT
#ifndef QXQR_TESTS_ELFIMAGE_HPP
#define QXQR_TESTS_ELFIMAGE_HPP

#include "ElfObject.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qxqr::test {

// A small ELF file made byte by byte, of either class and either byte
// order: the header, a loaded segment over the whole file, PT_INTERP if
// there is an interpreter, PT_DYNAMIC, then the interpreter's name, the
// dynamic string table and the dynamic section. What a loader reads and
// nothing else, so that every field can be set, or spoiled, at will.
struct ElfImage {
    ElfKind kind;
    unsigned type;
    std::optional<std::string> interpreter;
    std::vector<std::string> needed;
    std::optional<std::string> soname;
    std::optional<std::string> rpath;
    std::optional<std::string> runpath;
    bool noDefaultLibraries = false;
    // Entries added as they stand after the others, to point anywhere.
    std::vector<std::pair<std::int64_t, std::uint64_t>> extraEntries;

    // Where the parts lie in bytes().
    struct Layout {
        std::size_t programHeaders;
        std::size_t interpreter;
        std::size_t strings;
        std::size_t stringsSize;
        std::size_t dynamic;
        std::size_t size;
    };

    // A 64-bit little-endian x86 library (or program, with `type`) that
    // needs `needed`.
    static ElfImage library(std::vector<std::string> needed = {});

    Layout layout() const;
    std::string bytes() const;
    // Writes `value` of `width` bytes at `offset` of `image`, in this
    // image's byte order.
    void put(std::string& image, std::size_t offset, std::uint64_t value, std::size_t width) const;
    // The width of an address or offset in this class: 4 or 8.
    std::size_t wordSize() const;
};

} // namespace qxqr::test

#endif
