// SPDX-License-Identifier: MIT
#ifndef QXQR_ELFOBJECT_HPP
#define QXQR_ELFOBJECT_HPP

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace qxqr {

// What tells apart the objects that one process can load together: a
// 64-bit x86 program loads only 64-bit x86 libraries.
struct ElfKind {
    unsigned char elfClass = 0;  // ELFCLASS32 or ELFCLASS64
    unsigned char byteOrder = 0; // ELFDATA2LSB or ELFDATA2MSB
    unsigned machine = 0;        // EM_X86_64, EM_386, ...

    bool operator==(const ElfKind& other) const {
        return elfClass == other.elfClass && byteOrder == other.byteOrder && machine == other.machine;
    }
    bool operator!=(const ElfKind& other) const { return !(*this == other); }
};

// What the dynamic loader reads of an ELF file, and nothing more: its kind,
// its type, the interpreter its program headers name, and the dynamic
// section's needed libraries, soname and search paths. It is read from the
// program headers, as the loader reads it (a file stripped of its section
// headers still loads), through libelf, which turns either byte order and
// either class into the host's form.
struct ElfObject {
    ElfKind kind;
    unsigned type = 0; // ET_EXEC, ET_DYN, ...
    std::optional<std::string> interpreter;
    std::vector<std::string> needed; // DT_NEEDED, in order
    std::optional<std::string> soname;
    std::optional<std::string> rpath;
    std::optional<std::string> runpath;
    bool noDefaultLibraries = false; // DF_1_NODEFLIB: no cache and no default directories
};

// An ELF file that cannot be read: not ELF at all, cut short, or with an
// offset or index that points outside it. The message says what is wrong,
// without the file's name, which the caller adds.
class ElfError : public std::runtime_error {
public:
    explicit ElfError(const std::string& message) : std::runtime_error(message) {}
};

// A readable file that is no ELF file at all (a script, a data file).
class NotElfError : public ElfError {
public:
    NotElfError() : ElfError("not an ELF file") {}
};

// Reads the file `path` (never executing anything of it). Throws ElfError,
// also for a file that cannot be opened, with the system's reason.
ElfObject readElfFile(const std::string& path);

// The same over bytes already in memory.
ElfObject readElfMemory(const char* bytes, std::size_t size);

} // namespace qxqr

#endif
