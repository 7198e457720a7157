// SPDX-License-Identifier: MIT
#include "frontend/readWholeFile.hpp"

#include <qxqrscript/FileReader.hpp>

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace QuorelScript {

namespace {

// How much one read asks for: what a pipe holds at most.
const std::size_t chunkSize = std::size_t{64} * 1024;

class Descriptor {
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    int get() const { return descriptor_; }

private:
    int descriptor_;
};

// A pipe as "|" or "<(...)" make it. A FIFO that has a name in the file
// system is not one: opened without waiting for a writer, it would read as
// empty or not depending on whether its writer had come yet.
bool isPipe(int descriptor, const struct stat& status) {
    struct statfs fileSystem;
    return S_ISFIFO(status.st_mode) && ::fstatfs(descriptor, &fileSystem) == 0 && fileSystem.f_type == PIPEFS_MAGIC;
}

// Appends what `descriptor` gives to `text` until the file ends or `text`
// holds `limit` bytes. The string grows by its own doubling, so a long
// file costs linear time.
bool readUpTo(int descriptor, std::size_t limit, std::string& text) {
    while (text.size() < limit) {
        const std::size_t had = text.size();
        text.resize(std::min(limit, had + chunkSize));
        const ssize_t got = ::read(descriptor, &text[had], text.size() - had);
        text.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0)
            return true;
        if (got < 0 && errno != EINTR)
            return false;
    }
    return true;
}

// Whether `descriptor` has nothing more to give. One byte is asked for, so
// that a file of exactly the limit never needs a larger buffer.
bool isAtEnd(int descriptor) {
    char extra;
    ssize_t got;
    do
        got = ::read(descriptor, &extra, 1);
    while (got < 0 && errno == EINTR);
    return got == 0;
}

// A file that tells no size is read to its end, and refused once it gives
// more than the limit.
bool readToTheEnd(int descriptor, std::string& text) {
    return readUpTo(descriptor, FileReader::maxFileSize, text) && isAtEnd(descriptor);
}

// The size is taken before anything is allocated. A file that shrinks
// meanwhile gives what it still has; one that grows, its first `size` bytes.
// Many files under /proc say that they are empty and still hold text: a
// size of zero tells nothing, and such a file is read as a pipe is.
bool readRegularFile(int descriptor, std::string& text) {
    const off_t size = ::lseek(descriptor, 0, SEEK_END);
    if (size < 0 || static_cast<unsigned long long>(size) > FileReader::maxFileSize ||
        ::lseek(descriptor, 0, SEEK_SET) != 0)
        return false;
    if (size == 0)
        return readToTheEnd(descriptor, text);
    text.reserve(static_cast<std::size_t>(size));
    return readUpTo(descriptor, static_cast<std::size_t>(size), text);
}

// A pipe tells no size.
bool readPipe(int descriptor, std::string& text) {
    // Now that it is known to be a pipe, waiting for its writer is what
    // reading it means.
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (flags < 0 || ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) < 0)
        return false;
    return readToTheEnd(descriptor, text);
}

} // namespace

bool readWholeFile(const char* file, std::string& text) {
    if (file == nullptr)
        return false;
    // Opening a FIFO for reading would otherwise wait until a writer comes.
    const Descriptor descriptor(::open(file, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (descriptor.get() < 0 || ::fstat(descriptor.get(), &status) != 0)
        return false;
    if (S_ISREG(status.st_mode))
        return readRegularFile(descriptor.get(), text);
    if (isPipe(descriptor.get(), status))
        return readPipe(descriptor.get(), text);
    // A directory, a named FIFO, a device, a socket.
    return false;
}

} // namespace QuorelScript
