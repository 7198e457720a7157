// SPDX-License-Identifier: MIT
#include "ElfFiles.hpp"

#include "RootedPath.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace qxqr {

ElfFiles::ElfFiles(std::string root) : root(std::move(root)) {}

ElfFile ElfFiles::look(const std::string& path) const {
    ElfFile file;
    file.location = path;
    std::optional<std::string> inRoot = root.empty() ? std::nullopt : systemPathUnder(root, path);
    if (inRoot) {
        std::error_code error;
        file.location = root + followedInRoot(root, *inRoot, error);
        if (error) {
            file.state = ElfFile::State::broken;
            file.problem = error.message();
            return file;
        }
    }
    const std::string& location = file.location;
    struct stat status;
    if (stat(location.c_str(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return file;
        file.state = ElfFile::State::broken;
        file.problem = std::strerror(errno);
        return file;
    }
    file.identity = {status.st_dev, status.st_ino};
    try {
        file.object = readElfFile(location);
        file.state = ElfFile::State::elf;
    } catch (const NotElfError&) {
        file.state = ElfFile::State::notElf;
    } catch (const ElfError& error) {
        file.state =
            access(location.c_str(), R_OK) != 0 && errno == EACCES ? ElfFile::State::denied : ElfFile::State::broken;
        file.problem = error.what();
    }
    return file;
}

const ElfFile& ElfFiles::at(const std::string& path) {
    auto found = files.find(path);
    if (found == files.end())
        found = files.emplace(path, look(path)).first;
    return found->second;
}

} // namespace qxqr
