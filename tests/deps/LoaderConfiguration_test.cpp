// SPDX-License-Identifier: MIT
#include "LoaderConfiguration.hpp"

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <filesystem>

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

// Under a root, a symbolic link to an absolute name leads to the root's
// file of that name, never to the file of this system that the same name
// reaches: for the configuration itself, a directory of included files,
// and an included file.
TEST(LoaderConfiguration, LinksAreFollowedInsideTheRoot) {
    TempTree root;
    TempTree host;
    const std::string outside = host.path();
    host.file("main.conf", "/opt/host-main\ninclude /etc/ld.so.conf.d/*.conf\n");
    host.file("conf.d/a.conf", "/opt/host-directory\n");
    host.file("one.conf", "/opt/host-file\n");
    root.file(outside.substr(1) + "/main.conf", "/opt/main\ninclude /etc/ld.so.conf.d/*.conf\n");
    root.file(outside.substr(1) + "/conf.d/a.conf", "/opt/directory\ninclude /etc/files/*.conf\n");
    root.file(outside.substr(1) + "/one.conf", "/opt/file\n");
    std::filesystem::create_directories(root.path("etc/files"));
    std::filesystem::create_symlink(outside + "/main.conf", root.path("etc/ld.so.conf"));
    std::filesystem::create_symlink(outside + "/conf.d", root.path("etc/ld.so.conf.d"));
    std::filesystem::create_symlink(outside + "/one.conf", root.path("etc/files/one.conf"));
    EXPECT_EQ(configuredDirectories(root.path()), (Directories{"/opt/main", "/opt/directory", "/opt/file"}));
}

TEST(LoaderConfiguration, NoConfigurationAddsNothing) {
    TempTree root;
    EXPECT_TRUE(configuredDirectories(root.path()).empty());
}

} // namespace
} // namespace qxqr
