// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "host/textOrEmpty.hpp"

#include <sys/stat.h>

// A symbolic link to a directory counts as a directory.
bool kfIsDirectory(const char* path) {
    struct stat status;
    return stat(QuorelScript::textOrEmpty(path), &status) == 0 && S_ISDIR(status.st_mode);
}
