// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_TEMPTREE_HPP
#define QXQRSCRIPT_TESTS_TEMPTREE_HPP

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

// A temporary directory that a test fills with files and subdirectories and
// that is removed with everything in it when the object goes.
class TempTree {
public:
    TempTree() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qxqrscript-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot create a temporary directory");
        root_ = pattern;
    }
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;
    ~TempTree() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

    // The absolute path of `relative` inside the tree (the root for "").
    std::string path(const std::string& relative = "") const {
        return relative.empty() ? root_.string() : (root_ / relative).string();
    }

    // Creates the file with `contents`, and its parent directories.
    std::string file(const std::string& relative, const std::string& contents = "") const {
        std::filesystem::path target = root_ / relative;
        std::filesystem::create_directories(target.parent_path());
        std::ofstream(target, std::ios::binary) << contents;
        return target.string();
    }

    // Creates the directory and its parents.
    std::string dir(const std::string& relative) const {
        std::filesystem::create_directories(root_ / relative);
        return (root_ / relative).string();
    }

private:
    std::filesystem::path root_;
};

#endif
