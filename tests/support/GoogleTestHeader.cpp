// SPDX-License-Identifier: MIT
// Nothing but the target that compiles GoogleTest's header once, for every
// test executable to include precompiled.
#include <gtest/gtest.h>
