// SPDX-License-Identifier: MIT
#include "ElfFiles.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace qxqr {

namespace {

ElfFile look(const std::string& path)
{
    ElfFile file;
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return file;
        file.state = ElfFile::State::broken;
        file.problem = std::strerror(errno);
        return file;
    }
    file.identity = {status.st_dev, status.st_ino};
    try {
        file.object = readElfFile(path);
        file.state = ElfFile::State::elf;
    } catch (const NotElfError&) {
        file.state = ElfFile::State::notElf;
    } catch (const ElfError& error) {
        file.state = access(path.c_str(), R_OK) != 0 && errno == EACCES ? ElfFile::State::denied
                                                                        : ElfFile::State::broken;
        file.problem = error.what();
    }
    return file;
}

} // namespace

const ElfFile& ElfFiles::at(const std::string& path)
{
    auto found = files.find(path);
    if (found == files.end())
        found = files.emplace(path, look(path)).first;
    return found->second;
}

} // namespace qxqr
