// SPDX-License-Identifier: MIT
#ifndef QXQR_ELFFILES_HPP
#define QXQR_ELFFILES_HPP

#include "ElfObject.hpp"

#include <sys/types.h>

#include <optional>
#include <string>
#include <unordered_map>

namespace qxqr {

// Which file a name reaches, whatever the path: two names of one file (a
// symbolic link and its target, /lib and /usr/lib on a merged system) are
// one object for the loader.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;

    bool operator==(const FileIdentity& other) const { return device == other.device && inode == other.inode; }
    bool operator<(const FileIdentity& other) const {
        return device != other.device ? device < other.device : inode < other.inode;
    }
};

// What one path leads to.
struct ElfFile {
    enum class State {
        absent, // nothing there: the loader looks further
        denied, // there, but not ours to read: the loader looks further too
        broken, // there, but unreadable or a malformed ELF file: `problem` says why
        notElf, // a readable file of another kind
        elf,    // `object` holds what it says
    };
    State state = State::absent;
    std::string location; // the file read: under the root, the path with its links followed inside it
    FileIdentity identity;
    std::optional<ElfObject> object;
    std::string problem;
};

// Every path the walk looks at, each read once in a run, however many
// start files lead to it. A path under `root` (a system installed there,
// see RootedPath) is read as that system would read it, never reaching
// outside the root through a symbolic link; any other path as it is.
class ElfFiles {
public:
    explicit ElfFiles(std::string root = std::string());

    const ElfFile& at(const std::string& path);

private:
    ElfFile look(const std::string& path) const;

    std::string root;
    std::unordered_map<std::string, ElfFile> files;
};

} // namespace qxqr

#endif
