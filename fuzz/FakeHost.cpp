// SPDX-License-Identifier: MIT
// The directory services of the fuzz targets: answers from a small file tree
// held in memory, never from the disk.
//
// A fuzzed script may name any path: "include /*/*/* if true" would make the
// library's own services walk the real file system, and every "exists" would
// cost a system call, so runs would be slow and would depend on the machine.
// These definitions take the place of the library's own: the fuzz targets
// link this object file ahead of the static library, and the linker takes an
// archive member only for a symbol that is still undefined. Each host
// function is an archive member of its own, so the members of the three
// functions defined here are never taken, while the rest of the library
// (hbGetcwd, hbMultiByteStrStr, kfIgnoreString) comes from the archive as
// usual. Should a member ever be taken for another of its symbols, the link
// fails on the duplicate definition rather than silently using the disk.
#include <qxqrscript/host.hpp>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Entry {
    const char* path;
    bool isDirectory;
};

// In byte order, which is the order in which matches are reported. It holds
// what the shipped example rules talk about: an installation, a project with
// a hidden file and a name with a blank, and a relative folder.
const Entry tree[] = {
    {"/", true},
    {"/tmp", true},
    {"/vantor", true},
    {"/vantor/lib", true},
    {"/vantor/lib/libcore.so", false},
    {"/vantor/modules", true},
    {"/vantor/modules/graphics.vrkilx", false},
    {"/vantor/toolbox", true},
    {"/vantor/toolbox/lib", true},
    {"/vantor/toolbox/lib/libtoolbox.so", false},
    {"/vantor/toolbox/local", true},
    {"/work", true},
    {"/work/.hidden", false},
    {"/work/include", true},
    {"/work/include/main.h", false},
    {"/work/notes", true},
    {"/work/notes/release notes.txt", false},
    {"/work/plugins", true},
    {"/work/plugins/a.vrkilx", false},
    {"/work/src", true},
    {"/work/src/generated", true},
    {"/work/src/generated/table.c", false},
    {"/work/src/main.c", false},
    {"/work/src/util.c", false},
    {"a", true},
    {"a/b.c", false},
};

// `path` without its trailing slashes; "/" stays "/".
std::string withoutTrailingSlashes(const char* path) {
    std::string trimmed = path;
    while (trimmed.size() > 1 && trimmed.back() == '/')
        trimmed.pop_back();
    return trimmed;
}

const Entry* find(const char* path) {
    const std::string wanted = withoutTrailingSlashes(path);
    for (const Entry& entry : tree)
        if (wanted == entry.path)
            return &entry;
    return nullptr;
}

// The folder that holds `path`: the text before its last slash, "/" for a
// top-level path, "" for a relative name without a slash.
std::string parentOf(const std::string& path) {
    const std::string::size_type slash = path.rfind('/');
    if (slash == std::string::npos)
        return "";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Whether one path component matches one pattern component, where '*' stands
// for any run of characters and '?' for one. A leading dot must be written,
// and only an empty component matches an empty name (the one before the
// slash of "/x").
// The greedy walk with one retry point takes time proportional to the product
// of the two lengths at worst, however many stars the pattern holds.
bool componentMatches(const std::string& pattern, const std::string& name) {
    if (name.empty())
        return pattern.empty();
    if (name[0] == '.' && (pattern.empty() || pattern[0] != '.'))
        return false;
    std::size_t p = 0, n = 0, starAt = std::string::npos, resumeAt = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (p < pattern.size() && pattern[p] == '*') {
            starAt = p++;
            resumeAt = n;
        } else if (starAt != std::string::npos) {
            p = starAt + 1;
            n = ++resumeAt;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

std::vector<std::string> componentsOf(const std::string& path) {
    std::vector<std::string> components;
    std::string::size_type start = 0;
    for (std::string::size_type slash; (slash = path.find('/', start)) != std::string::npos; start = slash + 1)
        components.push_back(path.substr(start, slash - start));
    components.push_back(path.substr(start));
    return components;
}

bool pathMatches(const std::string& pattern, const std::string& path) {
    const std::vector<std::string> patternParts = componentsOf(pattern);
    const std::vector<std::string> pathParts = componentsOf(path);
    return patternParts.size() == pathParts.size() &&
           std::equal(patternParts.begin(), patternParts.end(), pathParts.begin(), componentMatches);
}

} // namespace

bool kfFileOrDirExists(const char* path) {
    return find(path) != nullptr;
}

bool kfIsDirectory(const char* path) {
    const Entry* entry = find(path);
    return entry != nullptr && entry->isDirectory;
}

void kfFindMatchingFilesAndDirs(const char* pattern, const kfStringProcedure& fileProc,
                                const kfStringProcedure& dirProc, int wholeDirectory, bool) {
    const std::string folder = withoutTrailingSlashes(pattern);
    for (const Entry& entry : tree) {
        const bool wanted = wholeDirectory == 1 ? std::strcmp(entry.path, "/") != 0 && parentOf(entry.path) == folder
                                                : pathMatches(pattern, entry.path);
        if (wanted)
            (entry.isDirectory ? dirProc : fileProc)(entry.path);
    }
}
