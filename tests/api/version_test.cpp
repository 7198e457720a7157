// SPDX-License-Identifier: MIT
#include <qxqrscript/version.hpp>

#include <gtest/gtest.h>

#include <regex>
#include <string>

TEST(Version, IsTheProjectVersion) {
    EXPECT_STREQ("1.0.0", libqxqrscript_version);
}

TEST(Version, HeaderMacrosSpellTheLibraryVersion) {
    const std::string headers = std::to_string(QXQRSCRIPT_VERSION_MAJOR) + "." +
                                std::to_string(QXQRSCRIPT_VERSION_MINOR) + "." +
                                std::to_string(QXQRSCRIPT_VERSION_PATCH);
    EXPECT_EQ(headers, libqxqrscript_version);
}

TEST(Version, BuildDateIsACalendarDate) {
    EXPECT_TRUE(std::regex_match(std::string(libqxqrscript_build_date), std::regex("[0-9]{4}-[01][0-9]-[0-3][0-9]")))
        << libqxqrscript_build_date;
}
