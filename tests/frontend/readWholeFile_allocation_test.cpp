// SPDX-License-Identifier: MIT
// Reading a script costs one allocation for a regular file, and nothing at
// all for one beyond the size limit, however large it claims to be.
#include "frontend/readWholeFile.hpp"

#include "ReplacedAllocator.hpp"
#include "TempTree.hpp"

#include <qxqrscript/FileReader.hpp>

#include <gtest/gtest.h>

#include <string>

#include <unistd.h>

using QuorelScript::FileReader;
using QuorelScript::readWholeFile;

namespace {

std::string fileOfSize(const TempTree& tree, const std::string& name, off_t size) {
    std::string file = tree.file(name);
    if (::truncate(file.c_str(), size) != 0)
        ADD_FAILURE() << "cannot make " << file << " " << size << " bytes long";
    return file;
}

std::size_t allocationsToRead(const std::string& file, bool& read) {
    std::string text;
    const std::size_t before = ReplacedAllocator::count();
    read = readWholeFile(file.c_str(), text);
    return ReplacedAllocator::count() - before;
}

} // namespace

TEST(readWholeFileAllocation, FileBeyondTheLimitAllocatesNothing) {
    TempTree tree;
    bool read = true;
    EXPECT_EQ(0u, allocationsToRead(fileOfSize(tree, "3GB.qr", 3LL << 30), read));
    EXPECT_FALSE(read);
    EXPECT_EQ(0u, allocationsToRead(fileOfSize(tree, "1TB.qr", 1LL << 40), read));
    EXPECT_FALSE(read);
}

TEST(readWholeFileAllocation, RegularFileIsReadIntoOneAllocation) {
    TempTree tree;
    bool read = false;
    EXPECT_EQ(1u, allocationsToRead(fileOfSize(tree, "10MB.qr", 10 << 20), read));
    EXPECT_TRUE(read);
}
