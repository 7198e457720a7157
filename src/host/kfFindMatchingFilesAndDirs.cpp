// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "host/textOrEmpty.hpp"

#include <dirent.h>
#include <glob.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using Paths = std::vector<std::string>;

bool isDotOrDotDot(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

bool endsInDotOrDotDot(const std::string& path) {
    const std::string::size_type slash = path.rfind('/');
    return isDotOrDotDot(path.c_str() + (slash == std::string::npos ? 0 : slash + 1));
}

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

// The entries of `directory` as paths below it, without "." and "..".
Paths directoryEntries(const char* directory) {
    Paths entries;
    std::unique_ptr<DIR, DirectoryCloser> stream(opendir(directory));
    if (!stream)
        return entries;
    std::string prefix = directory;
    if (prefix.back() != '/')
        prefix += '/';
    while (const dirent* entry = readdir(stream.get()))
        if (!isDotOrDotDot(entry->d_name))
            entries.push_back(prefix + entry->d_name);
    return entries;
}

// Only '*' and '?' are wildcards: every other character, '[' and '\' among
// them, stands for itself. "[[]" is the bracket expression for a literal '['.
std::string withLiteralBrackets(const char* pattern) {
    std::string escaped;
    for (const char* c = pattern; *c != '\0'; ++c) {
        if (*c == '[')
            escaped += "[[]";
        else
            escaped += *c;
    }
    return escaped;
}

class GlobResult {
public:
    // As in the shell, a wildcard does not match a leading dot of a name.
    explicit GlobResult(const std::string& pattern) {
        glob(pattern.c_str(), GLOB_NOSORT | GLOB_NOESCAPE, nullptr, &result_);
    }
    GlobResult(const GlobResult&) = delete;
    GlobResult& operator=(const GlobResult&) = delete;
    ~GlobResult() { globfree(&result_); }

    Paths paths() const { return Paths(result_.gl_pathv, result_.gl_pathv + result_.gl_pathc); }

private:
    glob_t result_ = glob_t();
};

// The C library's matcher recurses once per name of the pattern from the
// first that holds a wildcard to the last, at some 2 KB of stack a level. So
// that a host's thread with a small stack is safe from any script, a deeper
// pattern matches nothing; no real tree is that deep below a wildcard.
const std::size_t maxNamesFromFirstWildcard = 40;

bool isTooDeepToMatch(const char* pattern) {
    const char* firstWildcard = std::strpbrk(pattern, "*?");
    if (firstWildcard == nullptr)
        return false;
    const std::size_t slashesAfter =
        static_cast<std::size_t>(std::count(firstWildcard, firstWildcard + std::strlen(firstWildcard), '/'));
    return slashesAfter >= maxNamesFromFirstWildcard;
}

// The existing paths that `pattern` matches, without "." and "..".
Paths matchingPaths(const char* pattern) {
    if (isTooDeepToMatch(pattern))
        return Paths();
    Paths paths = GlobResult(withLiteralBrackets(pattern)).paths();
    paths.erase(std::remove_if(paths.begin(), paths.end(), endsInDotOrDotDot), paths.end());
    return paths;
}

} // namespace

void kfFindMatchingFilesAndDirs(const char* pattern, const kfStringProcedure& fileProc,
                                const kfStringProcedure& dirProc, int wholeDirectory, bool) {
    pattern = QuorelScript::textOrEmpty(pattern);
    Paths paths = wholeDirectory == 1 ? directoryEntries(pattern) : matchingPaths(pattern);
    // Byte order, whatever the locale's collation.
    std::sort(paths.begin(), paths.end());
    for (const std::string& path : paths) {
        const kfStringProcedure& report = kfIsDirectory(path.c_str()) ? dirProc : fileProc;
        report(path.c_str());
    }
}
