// SPDX-License-Identifier: MIT
#include "StandardOutputCapture.hpp"

#include <iostream>

namespace qxqr {

StandardOutputCapture::StandardOutputCapture() : original(std::cout.rdbuf(captured.rdbuf()))
{
}

StandardOutputCapture::~StandardOutputCapture()
{
    std::cout.rdbuf(original);
}

} // namespace qxqr
