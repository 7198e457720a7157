// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_HOST_HPP
#define QXQRSCRIPT_HOST_HPP

// The host services the library relies on: file-system tests, directory
// enumeration, the current directory and a multibyte-aware substring search.
// The library ships its own POSIX implementation of them, in which a null
// path or pattern is the empty one (which names nothing).

#include <qxqrscript/version.hpp>

#include <cstddef>

extern "C" {
// True when a file or directory of that name exists.
QXQRSCRIPT_API bool kfFileOrDirExists(const char* path);
// True for an existing directory.
QXQRSCRIPT_API bool kfIsDirectory(const char* path);
// The current directory, written into `buffer` of `size` characters;
// returns `buffer`, or null when the directory cannot be had or `buffer`
// is null. setCwdFromProcess hands it a zeroed buffer of 8706 characters.
QXQRSCRIPT_API char* hbGetcwd(char* buffer, std::size_t size);
}

// A callback that receives one path.
class QXQRSCRIPT_API kfStringProcedure {
public:
    virtual ~kfStringProcedure() = default;
    virtual bool operator()(const char* path) const = 0;
};

// A callback that does nothing with what it receives.
class QXQRSCRIPT_API kfIgnoreString : public kfStringProcedure {
public:
    ~kfIgnoreString() override;
    bool operator()(const char* path) const override;
};

// Enumerates what `pattern` denotes: with `wholeDirectory` 1 the entries of
// the directory `pattern`, reported as the directory, one '/' and the name;
// otherwise the existing paths that match `pattern`, where '*' and '?' may
// stand in any component and every other character stands for itself. As in
// the shell, a wildcard does not match the leading dot of a name. Each file
// goes to `fileProc`, each directory (a link to one included) to `dirProc`,
// all in byte order of the paths; "." and ".." are never reported, and what
// the procedures return is ignored. The last argument is reserved.
QXQRSCRIPT_API void kfFindMatchingFilesAndDirs(const char* pattern, const kfStringProcedure& fileProc,
                                               const kfStringProcedure& dirProc, int wholeDirectory, bool reserved);

// The first occurrence of `needle` in `haystack`, stepping over whole
// multibyte characters of the current locale; null when there is none or
// `haystack` is null. A null `needle` is the empty one.
QXQRSCRIPT_API char* hbMultiByteStrStr(char* haystack, const char* needle);

#endif
