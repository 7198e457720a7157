#include <qxqrscript/host.hpp>

#include <unistd.h>

char* hbGetcwd(char* buffer, size_t size) {
    return getcwd(buffer, size);
}
