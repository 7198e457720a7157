// SPDX-License-Identifier: MIT
#include "ElfObject.hpp"

#include <fcntl.h>
#include <gelf.h>
#include <libelf.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

namespace qxqr {

namespace {

std::string libelfMessage() {
    const char* message = elf_errmsg(-1);
    return message ? message : "unknown libelf error";
}

void startLibelf() {
    static const bool started = elf_version(EV_CURRENT) != EV_NONE;
    if (!started)
        throw ElfError("libelf does not know the current ELF version");
}

// The first bytes of a file, before libelf sees them: a file without the
// ELF magic number is a file of another kind; one with it but shorter than
// its header is a broken ELF file, which libelf would only call invalid.
void checkStart(const char* bytes, std::size_t size) {
    if (size < SELFMAG || std::memcmp(bytes, ELFMAG, SELFMAG) != 0)
        throw NotElfError();
    const std::size_t headerSize =
        size > EI_CLASS && bytes[EI_CLASS] == ELFCLASS64 ? sizeof(Elf64_Ehdr) : sizeof(Elf32_Ehdr);
    if (size < headerSize)
        throw ElfError("the ELF header is cut short (" + std::to_string(size) + " bytes)");
}

// A descriptor open for reading, closed when it goes.
class ReadOnlyFile {
public:
    // Opened without waiting: a FIFO would otherwise wait for a writer, and
    // a terminal would become the process's own.
    explicit ReadOnlyFile(const std::string& path)
        : descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
        if (descriptor < 0)
            throw ElfError(std::strerror(errno));
        struct stat status;
        if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
            close(descriptor);
            throw ElfError("not a regular file");
        }
    }
    ~ReadOnlyFile() { close(descriptor); }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;

    int get() const { return descriptor; }

    // The first bytes of the file, as many as an ELF header takes at most.
    std::string start() const {
        char bytes[sizeof(Elf64_Ehdr)];
        ssize_t size = pread(descriptor, bytes, sizeof bytes, 0);
        if (size < 0)
            throw ElfError(std::strerror(errno));
        return std::string(bytes, static_cast<std::size_t>(size));
    }

private:
    int descriptor;
};

// libelf's handle on one file or buffer, ended when it goes.
class ElfHandle {
public:
    explicit ElfHandle(Elf* elf) : elf(elf) {
        if (!elf)
            throw ElfError(libelfMessage());
    }
    ~ElfHandle() { elf_end(elf); }
    ElfHandle(const ElfHandle&) = delete;
    ElfHandle& operator=(const ElfHandle&) = delete;

    Elf* get() const { return elf; }

private:
    Elf* elf;
};

// The dynamic section's entries that name strings, before the string
// table is known: they hold offsets into it.
struct DynamicEntries {
    std::vector<GElf_Xword> needed;
    std::optional<GElf_Xword> soname, rpath, runpath;
    std::optional<GElf_Addr> stringTable;
    GElf_Xword stringTableSize = 0;
    bool noDefaultLibraries = false;
};

class Reader {
public:
    explicit Reader(Elf* elf) : elf(elf) {}

    ElfObject read() {
        ElfObject object;
        readHeader(object);
        readProgramHeaders();
        for (const GElf_Phdr& header : programHeaders) {
            if (header.p_type == PT_INTERP && !object.interpreter)
                object.interpreter = interpreterOf(header);
        }
        for (const GElf_Phdr& header : programHeaders) {
            if (header.p_type == PT_DYNAMIC) {
                readDynamic(header, object);
                break;
            }
        }
        return object;
    }

private:
    void readHeader(ElfObject& object) {
        if (elf_kind(elf) != ELF_K_ELF)
            throw ElfError("an ELF header of an unknown class or byte order");
        GElf_Ehdr header;
        if (!gelf_getehdr(elf, &header))
            throw ElfError("unreadable ELF header: " + libelfMessage());
        object.kind.elfClass = header.e_ident[EI_CLASS];
        object.kind.byteOrder = header.e_ident[EI_DATA];
        object.kind.machine = header.e_machine;
        object.type = header.e_type;
    }

    void readProgramHeaders() {
        std::size_t count = 0;
        if (elf_getphdrnum(elf, &count) != 0)
            throw ElfError("unreadable program headers: " + libelfMessage());
        for (std::size_t index = 0; index < count; ++index) {
            GElf_Phdr header;
            if (!gelf_getphdr(elf, static_cast<int>(index), &header))
                throw ElfError("unreadable program header " + std::to_string(index) + ": " + libelfMessage());
            programHeaders.push_back(header);
        }
    }

    // `size` bytes at `offset` of the file, in the host's form of `type`.
    Elf_Data* chunk(GElf_Off offset, GElf_Xword size, Elf_Type type, const char* what) {
        Elf_Data* data = elf_getdata_rawchunk(elf, static_cast<int64_t>(offset), size, type);
        if (!data)
            throw ElfError(std::string(what) + " at offset " + std::to_string(offset) + ", " + std::to_string(size) +
                           " bytes, lies beyond the end of the file");
        return data;
    }

    std::string interpreterOf(const GElf_Phdr& header) {
        if (header.p_filesz == 0)
            throw ElfError("the interpreter's name is empty");
        Elf_Data* data = chunk(header.p_offset, header.p_filesz, ELF_T_BYTE, "the interpreter's name");
        const char* bytes = static_cast<const char*>(data->d_buf);
        const void* end = std::memchr(bytes, '\0', data->d_size);
        if (!end)
            throw ElfError("the interpreter's name has no end");
        return std::string(bytes, static_cast<const char*>(end));
    }

    void readDynamic(const GElf_Phdr& header, ElfObject& object) {
        if (header.p_filesz == 0)
            return;
        Elf_Data* data = chunk(header.p_offset, header.p_filesz, ELF_T_DYN, "the dynamic section");
        DynamicEntries entries;
        GElf_Dyn entry;
        for (int index = 0; gelf_getdyn(data, index, &entry) && entry.d_tag != DT_NULL; ++index)
            take(entry, entries);
        object.noDefaultLibraries = entries.noDefaultLibraries;
        if (entries.needed.empty() && !entries.soname && !entries.rpath && !entries.runpath)
            return;
        StringTable strings = stringTable(entries);
        for (GElf_Xword offset : entries.needed)
            object.needed.push_back(strings.at(offset));
        object.soname = strings.at(entries.soname);
        object.rpath = strings.at(entries.rpath);
        object.runpath = strings.at(entries.runpath);
    }

    static void take(const GElf_Dyn& entry, DynamicEntries& entries) {
        // The entries that give the string table offset of one name.
        static const std::pair<GElf_Sxword, std::optional<GElf_Xword> DynamicEntries::*> names[] = {
            {DT_SONAME, &DynamicEntries::soname},
            {DT_RPATH, &DynamicEntries::rpath},
            {DT_RUNPATH, &DynamicEntries::runpath}};
        for (const auto& [tag, offset] : names)
            if (entry.d_tag == tag)
                entries.*offset = entry.d_un.d_val;
        switch (entry.d_tag) {
        case DT_NEEDED:
            entries.needed.push_back(entry.d_un.d_val);
            break;
        case DT_STRTAB:
            entries.stringTable = entry.d_un.d_ptr;
            break;
        case DT_STRSZ:
            entries.stringTableSize = entry.d_un.d_val;
            break;
        case DT_FLAGS_1:
            entries.noDefaultLibraries = (entry.d_un.d_val & DF_1_NODEFLIB) != 0;
            break;
        default:
            break;
        }
    }

    // The dynamic string table, bounded by its size, every string checked
    // to lie inside it.
    class StringTable {
    public:
        StringTable(const char* bytes, std::size_t size) : bytes(bytes), size(size) {}

        std::string at(GElf_Xword offset) const {
            if (offset >= size)
                throw ElfError("string table index " + std::to_string(offset) + " out of range (size " +
                               std::to_string(size) + ")");
            const void* end = std::memchr(bytes + offset, '\0', size - offset);
            if (!end)
                throw ElfError("the string at index " + std::to_string(offset) + " runs past the string table");
            return std::string(bytes + offset, static_cast<const char*>(end));
        }

        // The string at `offset`, when there is one.
        std::optional<std::string> at(std::optional<GElf_Xword> offset) const {
            if (!offset)
                return std::nullopt;
            return at(*offset);
        }

    private:
        const char* bytes;
        std::size_t size;
    };

    StringTable stringTable(const DynamicEntries& entries) {
        if (!entries.stringTable)
            throw ElfError("the dynamic section names strings but has no string table");
        if (entries.stringTableSize == 0)
            throw ElfError("the dynamic string table is empty");
        GElf_Off offset = fileOffsetOf(*entries.stringTable);
        Elf_Data* data = chunk(offset, entries.stringTableSize, ELF_T_BYTE, "the dynamic string table");
        return StringTable(static_cast<const char*>(data->d_buf), data->d_size);
    }

    // Where the loaded segment that holds `address` has it in the file.
    GElf_Off fileOffsetOf(GElf_Addr address) const {
        for (const GElf_Phdr& header : programHeaders) {
            if (header.p_type == PT_LOAD && address >= header.p_vaddr && address - header.p_vaddr < header.p_filesz)
                return header.p_offset + (address - header.p_vaddr);
        }
        throw ElfError("the dynamic string table's address " + std::to_string(address) + " lies in no loaded segment");
    }

    Elf* elf;
    std::vector<GElf_Phdr> programHeaders;
};

} // namespace

ElfObject readElfFile(const std::string& path) {
    startLibelf();
    ReadOnlyFile file(path);
    const std::string start = file.start();
    checkStart(start.data(), start.size());
    ElfHandle elf(elf_begin(file.get(), ELF_C_READ_MMAP, nullptr));
    return Reader(elf.get()).read();
}

ElfObject readElfMemory(const char* bytes, std::size_t size) {
    startLibelf();
    checkStart(bytes, size);
    // libelf takes the buffer as writable; a copy keeps the caller's intact.
    std::vector<char> copy(bytes, bytes + size);
    ElfHandle elf(elf_memory(copy.data(), copy.size()));
    return Reader(elf.get()).read();
}

} // namespace qxqr
