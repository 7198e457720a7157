// SPDX-License-Identifier: MIT
#include <qxqrscript/host.hpp>

#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <unistd.h>

namespace {

// Changes the process's current directory for the lifetime of the object.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::string& directory) : previous_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory);
    }
    ~WorkingDirectory() { std::filesystem::current_path(previous_); }

private:
    std::filesystem::path previous_;
};

TEST(hbGetcwd, GivesTheCurrentDirectory) {
    TempTree tree;
    const std::string directory = std::filesystem::canonical(tree.dir("here")).string();
    WorkingDirectory changed(directory);
    char buffer[4096];
    EXPECT_EQ(buffer, hbGetcwd(buffer, sizeof buffer));
    EXPECT_EQ(directory, buffer);
}

TEST(hbGetcwd, NullWhenTheBufferIsTooSmall) {
    char buffer[1];
    EXPECT_EQ(nullptr, hbGetcwd(buffer, sizeof buffer));
}

} // namespace
