// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(kfIgnoreString, AcceptsAnythingAndReturnsFalse) {
    std::unique_ptr<kfStringProcedure> ignore(new kfIgnoreString);
    EXPECT_FALSE((*ignore)("/any/path"));
    EXPECT_FALSE((*ignore)(""));
}

} // namespace
