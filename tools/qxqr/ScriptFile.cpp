// SPDX-License-Identifier: MIT
#include "ScriptFile.hpp"

#include "Command.hpp"
#include "QuotedName.hpp"

#include <qxqrscript/FileReader.hpp>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace qxqr {

namespace {

const std::string standardInput = "-";

std::string tooLarge() {
    return "File too large (the limit for a script is " + std::to_string(QuorelScript::FileReader::maxFileSize) +
           " bytes)";
}

// What "|" or "<(...)" make, as against a FIFO with a name, which the
// library does not read: without waiting for a writer, reading it would
// race with one that has yet to come.
bool isPipe(int descriptor, const struct stat& status) {
    struct statfs fileSystem;
    return S_ISFIFO(status.st_mode) && ::fstatfs(descriptor, &fileSystem) == 0 && fileSystem.f_type == PIPEFS_MAGIC;
}

std::string kindOf(mode_t mode) {
    if (S_ISFIFO(mode))
        return "Is a named FIFO";
    if (S_ISCHR(mode))
        return "Is a character device";
    if (S_ISBLK(mode))
        return "Is a block device";
    if (S_ISSOCK(mode))
        return "Is a socket";
    return "Is a special file";
}

} // namespace

void ScriptFile::refuse(const std::string& name, const std::string& reason) {
    throw Failure("qxqr: cannot read " + nameInQuotes(name) + ": " + reason + "\n");
}

ScriptFile::ScriptFile(const std::string& name) : name_(name) {
    const bool isStandardInput = name == standardInput;
    if (isStandardInput && ::fcntl(STDIN_FILENO, F_GETFD) < 0)
        refuse(name, "Standard input is closed");
    // Opening a FIFO for reading would otherwise wait until a writer comes.
    descriptor_ = ::open(isStandardInput ? "/dev/stdin" : name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor_ < 0)
        refuse(name, std::strerror(errno));
    try {
        struct stat status;
        if (::fstat(descriptor_, &status) != 0)
            refuse(name, std::strerror(errno));
        if (S_ISDIR(status.st_mode))
            refuse(name, std::strerror(EISDIR));
        if (S_ISREG(status.st_mode)) {
            const off_t size = ::lseek(descriptor_, 0, SEEK_END);
            if (size < 0)
                refuse(name, "Cannot tell its size");
            if (static_cast<unsigned long long>(size) > QuorelScript::FileReader::maxFileSize)
                refuse(name, tooLarge());
            ::lseek(descriptor_, 0, SEEK_SET);
            readHere_ = isStandardInput || quotedName(name) != name;
        } else if (isPipe(descriptor_, status)) {
            readHere_ = true;
        } else {
            refuse(name, kindOf(status.st_mode) + ", not a regular file or a pipe");
        }
    } catch (...) {
        ::close(descriptor_);
        throw;
    }
}

ScriptFile::~ScriptFile() {
    ::close(descriptor_);
}

std::string ScriptFile::scriptName() const {
    return name_ == standardInput ? "<standard input>" : quotedName(name_);
}

std::string ScriptFile::readWhole() const {
    // Now that the file is known to be one that ends, waiting for its
    // writer is what reading it means.
    const int flags = ::fcntl(descriptor_, F_GETFL);
    if (flags < 0 || ::fcntl(descriptor_, F_SETFL, flags & ~O_NONBLOCK) < 0)
        refuse(name_, std::strerror(errno));
    std::string text;
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t got = ::read(descriptor_, buffer, sizeof buffer);
        if (got == 0)
            return text;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            refuse(name_, std::strerror(errno));
        // Tested before the text grows, which keeps it within the limit.
        if (text.size() + static_cast<std::size_t>(got) > QuorelScript::FileReader::maxFileSize)
            refuse(name_, tooLarge());
        text.append(buffer, static_cast<std::size_t>(got));
    }
}

} // namespace qxqr
