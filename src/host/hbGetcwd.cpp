// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include <unistd.h>

// Without a buffer there is nowhere to write: the C library would
// allocate one that nobody frees.
char* hbGetcwd(char* buffer, size_t size) {
    if (buffer == nullptr)
        return nullptr;
    return getcwd(buffer, size);
}
