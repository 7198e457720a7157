// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "host/textOrEmpty.hpp"

#include <sys/stat.h>

bool kfFileOrDirExists(const char* path) {
    struct stat status;
    return stat(QuorelScript::textOrEmpty(path), &status) == 0;
}
