// SPDX-License-Identifier: MIT
#include "LoaderConfiguration.hpp"

#include "TempTree.hpp"

#include <gtest/gtest.h>

namespace qxqr {
namespace {

using Directories = std::vector<std::string>;

TEST(LoaderConfiguration, ReadsDirectoriesAndIncludesInOrder) {
    TempTree root;
    root.file("etc/ld.so.conf", "# the system's own\n/usr/local/lib\ninclude /etc/ld.so.conf.d/*.conf\n/opt/last\n");
    root.file("etc/ld.so.conf.d/b.conf", "/opt/b   # a comment\n");
    root.file("etc/ld.so.conf.d/a.conf", "\n  /opt/a/  \nhwcap 0 nosegneg\n/opt/typed=libc6\n");
    root.file("etc/ld.so.conf.d/ignored.txt", "/opt/not-a-conf\n");
    EXPECT_EQ(configuredDirectories(root.path()),
              (Directories{"/usr/local/lib", "/opt/a", "/opt/typed", "/opt/b", "/opt/last"}));
}

TEST(LoaderConfiguration, ARelativeIncludeIsTakenFromTheIncludingFile) {
    TempTree root;
    root.file("etc/ld.so.conf", "include more/*.conf\n");
    root.file("etc/more/x.conf", "/opt/x\n");
    EXPECT_EQ(configuredDirectories(root.path()), (Directories{"/opt/x"}));
}

TEST(LoaderConfiguration, ADirectoryOrAFileCountsOnce) {
    TempTree root;
    root.file("etc/ld.so.conf", "/opt/x\ninclude /etc/ld.so.conf\n/opt/x/\ninclude /etc/again.conf\n");
    root.file("etc/again.conf", "include /etc/ld.so.conf\n/opt/y\n");
    EXPECT_EQ(configuredDirectories(root.path()), (Directories{"/opt/x", "/opt/y"}));
}

TEST(LoaderConfiguration, NoConfigurationAddsNothing) {
    TempTree root;
    EXPECT_TRUE(configuredDirectories(root.path()).empty());
}

} // namespace
} // namespace qxqr
