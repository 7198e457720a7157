// SPDX-License-Identifier: MIT
#include "ElfImage.hpp"

#include <elf.h>

namespace qxqr::test {

namespace {

const std::uint64_t loadAddress = 0x400000;

struct StringTable {
    std::string bytes = std::string(1, '\0');

    std::uint64_t add(const std::string& text) {
        std::uint64_t offset = bytes.size();
        bytes += text;
        bytes += '\0';
        return offset;
    }
};

} // namespace

ElfImage ElfImage::library(std::vector<std::string> needed) {
    ElfImage image{{ELFCLASS64, ELFDATA2LSB, EM_X86_64},
                   ET_DYN,
                   std::nullopt,
                   std::move(needed),
                   std::nullopt,
                   std::nullopt,
                   std::nullopt,
                   false,
                   {}};
    return image;
}

std::size_t ElfImage::wordSize() const {
    return kind.elfClass == ELFCLASS64 ? 8 : 4;
}

void ElfImage::put(std::string& image, std::size_t offset, std::uint64_t value, std::size_t width) const {
    for (std::size_t index = 0; index < width; ++index) {
        std::size_t shift = kind.byteOrder == ELFDATA2MSB ? width - 1 - index : index;
        image[offset + index] = static_cast<char>((value >> (8 * shift)) & 0xFF);
    }
}

namespace {

struct DynamicEntries {
    std::vector<std::pair<std::int64_t, std::uint64_t>> entries;
    StringTable strings;
};

DynamicEntries dynamicOf(const ElfImage& image) {
    DynamicEntries result;
    for (const std::string& name : image.needed)
        result.entries.push_back({DT_NEEDED, result.strings.add(name)});
    if (image.soname)
        result.entries.push_back({DT_SONAME, result.strings.add(*image.soname)});
    if (image.rpath)
        result.entries.push_back({DT_RPATH, result.strings.add(*image.rpath)});
    if (image.runpath)
        result.entries.push_back({DT_RUNPATH, result.strings.add(*image.runpath)});
    if (image.noDefaultLibraries)
        result.entries.push_back({DT_FLAGS_1, DF_1_NODEFLIB});
    return result;
}

} // namespace

ElfImage::Layout ElfImage::layout() const {
    const std::size_t word = wordSize();
    const std::size_t headerSize = word == 8 ? 64 : 52;
    const std::size_t programHeaderSize = word == 8 ? 56 : 32;
    const std::size_t programHeaderCount = interpreter ? 3 : 2;
    DynamicEntries dynamic = dynamicOf(*this);
    Layout layout;
    layout.programHeaders = headerSize;
    layout.interpreter = headerSize + programHeaderCount * programHeaderSize;
    layout.strings = layout.interpreter + (interpreter ? interpreter->size() + 1 : 0);
    layout.stringsSize = dynamic.strings.bytes.size();
    std::size_t end = layout.strings + layout.stringsSize;
    layout.dynamic = (end + word - 1) / word * word;
    // Each entry, the string table's address and size, the extra entries, and DT_NULL.
    layout.size = layout.dynamic + (dynamic.entries.size() + 2 + extraEntries.size() + 1) * 2 * word;
    return layout;
}

std::string ElfImage::bytes() const {
    const std::size_t word = wordSize();
    const Layout parts = layout();
    DynamicEntries dynamic = dynamicOf(*this);
    std::string image(parts.size, '\0');

    image.replace(0, 4,
                  "\x7f"
                  "ELF");
    image[EI_CLASS] = static_cast<char>(kind.elfClass);
    image[EI_DATA] = static_cast<char>(kind.byteOrder);
    image[EI_VERSION] = EV_CURRENT;
    put(image, 16, type, 2);
    put(image, 18, kind.machine, 2);
    put(image, 20, EV_CURRENT, 4);
    const std::size_t programHeaderSize = word == 8 ? 56 : 32;
    const std::size_t count = interpreter ? 3 : 2;
    put(image, word == 8 ? 32 : 28, parts.programHeaders, word); // e_phoff
    put(image, word == 8 ? 52 : 40, word == 8 ? 64 : 52, 2);     // e_ehsize
    put(image, word == 8 ? 54 : 42, programHeaderSize, 2);       // e_phentsize
    put(image, word == 8 ? 56 : 44, count, 2);                   // e_phnum

    // p_type, then offset, address and file size at their places per class.
    auto programHeader = [&](std::size_t index, std::uint32_t kindOfSegment, std::uint64_t offset, std::uint64_t size) {
        std::size_t at = parts.programHeaders + index * programHeaderSize;
        put(image, at, kindOfSegment, 4);
        if (word == 8) {
            put(image, at + 8, offset, 8);
            put(image, at + 16, loadAddress + offset, 8);
            put(image, at + 32, size, 8);
            put(image, at + 40, size, 8);
        } else {
            put(image, at + 4, offset, 4);
            put(image, at + 8, loadAddress + offset, 4);
            put(image, at + 16, size, 4);
            put(image, at + 20, size, 4);
        }
    };
    std::size_t index = 0;
    programHeader(index++, PT_LOAD, 0, parts.size);
    if (interpreter) {
        programHeader(index++, PT_INTERP, parts.interpreter, interpreter->size() + 1);
        image.replace(parts.interpreter, interpreter->size(), *interpreter);
    }
    programHeader(index, PT_DYNAMIC, parts.dynamic, parts.size - parts.dynamic);

    image.replace(parts.strings, dynamic.strings.bytes.size(), dynamic.strings.bytes);
    dynamic.entries.push_back({DT_STRTAB, loadAddress + parts.strings});
    dynamic.entries.push_back({DT_STRSZ, parts.stringsSize});
    dynamic.entries.insert(dynamic.entries.end(), extraEntries.begin(), extraEntries.end());
    std::size_t at = parts.dynamic;
    for (const auto& [tag, value] : dynamic.entries) {
        put(image, at, static_cast<std::uint64_t>(tag), word);
        put(image, at + word, value, word);
        at += 2 * word;
    }
    return image; // DT_NULL: the zeros that remain
}

} // namespace qxqr::test
