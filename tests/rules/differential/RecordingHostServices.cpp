// SPDX-License-Identifier: MIT
#include "RecordingHostServices.hpp"

#include <qxqrscript/host.hpp>

#include <cstdint>
#include <string>

namespace {

// The answers depend on the path alone, the same on every platform (a
// 32-bit std::hash would answer otherwise than a 64-bit one): FNV-1a.
std::uint64_t hashOf(const char* path) {
    std::uint64_t hash = 14695981039346656037u;
    for (const char* c = path; *c; ++c)
        hash = (hash ^ static_cast<unsigned char>(*c)) * 1099511628211u;
    return hash;
}

} // namespace

std::vector<std::string>& RecordingHostServices::log() {
    static std::vector<std::string> calls;
    return calls;
}

// The linker takes these in place of the library's own, which live in
// separate members of its static archive.
bool kfFileOrDirExists(const char* path) {
    RecordingHostServices::log().push_back(std::string("exists ") + path);
    return hashOf(path) % 3 == 0;
}

bool kfIsDirectory(const char* path) {
    RecordingHostServices::log().push_back(std::string("isDirectory ") + path);
    return hashOf(path) % 4 == 0;
}

void kfFindMatchingFilesAndDirs(const char* pattern, const kfStringProcedure& fileProc,
                                const kfStringProcedure& dirProc, int wholeDirectory, bool reserved) {
    RecordingHostServices::log().push_back(std::string("find ") + pattern + " " + std::to_string(wholeDirectory) +
                                           (reserved ? " reserved" : ""));
    const std::string base(pattern);
    fileProc((base + "/first").c_str());
    dirProc((base + "/directory").c_str());
    if (hashOf(pattern) % 2 == 0)
        fileProc((base + "/second").c_str());
}
