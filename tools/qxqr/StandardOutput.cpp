// SPDX-License-Identifier: MIT
#include "StandardOutput.hpp"

#include "Command.hpp"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace qxqr {

void writeStandardOutput(const std::string& text) {
    errno = 0;
    std::cout << text << std::flush;
    if (!std::cout)
        throw Failure(std::string("qxqr: cannot write standard output: ") +
                      (errno ? std::strerror(errno) : "write failed") + "\n");
}

} // namespace qxqr
