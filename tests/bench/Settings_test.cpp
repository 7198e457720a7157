// SPDX-License-Identifier: MIT
#include "Settings.hpp"

#include <gtest/gtest.h>

using namespace qxqr::bench;

TEST(Settings, HostValuesAreFilledIn) {
    Settings settings;
    settings.vantorRoot = "/v";
    settings.cwd = "/w";
    EXPECT_EQ("/v/toolbox/pkg1/", withHostValues("$toolbox/pkg1/", settings));
    EXPECT_EQ("/v/lib:/w/src", withHostValues("$vantor/lib:$cwd/src", settings));
    EXPECT_EQ(".vrkilx.so/ia32lx", withHostValues("$vrk$lib/$arch", settings));
}

TEST(Settings, FileVariablesAndUnknownOnesStay) {
    EXPECT_EQ("$dir/$name.vrkilx", withHostValues("$dir/$name$vrk", Settings()));
    EXPECT_EQ("$file$ext$unknown", withHostValues("$file$ext$unknown", Settings()));
}
