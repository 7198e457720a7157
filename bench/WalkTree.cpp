// SPDX-License-Identifier: MIT
#include "WalkTree.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace qxqr::bench {

namespace {

constexpr int sourcesPerFolder = 500;

void touch(const std::filesystem::path& file) {
    if (!std::ofstream(file))
        throw std::runtime_error("cannot create " + file.string());
}

std::string numbered(char letter, int number) {
    char text[16];
    std::snprintf(text, sizeof text, "%c%03d", letter, number);
    return text;
}

} // namespace

void makeWalkTree(const std::string& root, std::size_t folders) {
    const std::filesystem::path marker = root + ".complete";
    if (std::filesystem::exists(marker))
        return;
    std::filesystem::remove_all(root);
    std::filesystem::create_directories(root);
    touch(std::filesystem::path(root) / "main.c");
    touch(std::filesystem::path(root) / "main.h");
    for (std::size_t folder = 0; folder < folders; ++folder) {
        const std::filesystem::path directory =
            std::filesystem::path(root) / "src" / numbered('d', static_cast<int>(folder));
        std::filesystem::create_directories(directory);
        for (int source = 0; source < sourcesPerFolder; ++source) {
            touch(directory / (numbered('f', source) + ".c"));
            touch(directory / (numbered('f', source) + ".h"));
        }
    }
    touch(marker);
}

} // namespace qxqr::bench
