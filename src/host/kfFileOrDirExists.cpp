#include <qxqrscript/host.hpp>

#include <sys/stat.h>

bool kfFileOrDirExists(const char* path) {
    struct stat status;
    return stat(path, &status) == 0;
}
