// SPDX-License-Identifier: MIT
#include "RecordingHostServices.hpp"

#include <qxqrscript/host.hpp>

#include <functional>
#include <string>

namespace {

std::size_t hashOf(const char* path) {
    return std::hash<std::string>()(path);
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
