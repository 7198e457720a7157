// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

kfIgnoreString::~kfIgnoreString() = default;

bool kfIgnoreString::operator()(const char*) const {
    return false;
}
