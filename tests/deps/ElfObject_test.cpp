// SPDX-License-Identifier: MIT
#include "ElfImage.hpp"
#include "ElfObject.hpp"

#include <elf.h>
#include <gtest/gtest.h>

#include <string>

namespace qxqr {
namespace {

using test::ElfImage;

ElfObject readImage(const std::string& bytes) {
    return readElfMemory(bytes.data(), bytes.size());
}

// The message of the ElfError that reading `bytes` throws.
std::string problemOf(const std::string& bytes) {
    try {
        readImage(bytes);
    } catch (const ElfError& error) {
        return error.what();
    }
    return "no error";
}

ElfImage fullImage(unsigned char elfClass, unsigned char byteOrder, unsigned machine) {
    ElfImage image = ElfImage::library({"libc.so.6", "libm.so.6"});
    image.kind = {elfClass, byteOrder, machine};
    image.type = ET_EXEC;
    image.interpreter = "/lib/ld-linux.so.2";
    image.soname = "libself.so.1";
    image.rpath = "$ORIGIN/../lib";
    image.runpath = "/opt/lib";
    image.noDefaultLibraries = true;
    return image;
}

class EveryClassAndByteOrder : public testing::TestWithParam<std::tuple<unsigned char, unsigned char, unsigned>> {};

TEST_P(EveryClassAndByteOrder, ReadsWhatTheLoaderReads) {
    auto [elfClass, byteOrder, machine] = GetParam();
    ElfObject object = readImage(fullImage(elfClass, byteOrder, machine).bytes());
    EXPECT_EQ(object.kind, (ElfKind{elfClass, byteOrder, machine}));
    EXPECT_EQ(object.type, unsigned(ET_EXEC));
    EXPECT_EQ(object.interpreter, "/lib/ld-linux.so.2");
    EXPECT_EQ(object.needed, (std::vector<std::string>{"libc.so.6", "libm.so.6"}));
    EXPECT_EQ(object.soname, "libself.so.1");
    EXPECT_EQ(object.rpath, "$ORIGIN/../lib");
    EXPECT_EQ(object.runpath, "/opt/lib");
    EXPECT_TRUE(object.noDefaultLibraries);
}

INSTANTIATE_TEST_SUITE_P(ElfObject, EveryClassAndByteOrder,
                         testing::Values(std::make_tuple(ELFCLASS64, ELFDATA2LSB, EM_X86_64),
                                         std::make_tuple(ELFCLASS32, ELFDATA2LSB, EM_386),
                                         std::make_tuple(ELFCLASS64, ELFDATA2MSB, EM_S390),
                                         std::make_tuple(ELFCLASS32, ELFDATA2MSB, EM_PPC)));

TEST(ElfObject, AnObjectWithoutDynamicStringsHasNoNeeds) {
    ElfObject object = readImage(ElfImage::library().bytes());
    EXPECT_TRUE(object.needed.empty());
    EXPECT_FALSE(object.soname);
    EXPECT_FALSE(object.interpreter);
    EXPECT_FALSE(object.noDefaultLibraries);
}

// Entries may name one string any number of times: every one is a need, so
// the strings read may together be longer than the file.
TEST(ElfObject, ListsANeedAsOftenAsItIsNamed) {
    const std::string name(64, 'n');
    ElfImage library = ElfImage::library({name});
    library.extraEntries.assign(100, {DT_NEEDED, 1});
    const std::string image = library.bytes();
    ElfObject object = readImage(image);
    ASSERT_EQ(object.needed.size(), 101u);
    EXPECT_EQ(object.needed, std::vector<std::string>(101, name));
    EXPECT_GT(object.needed.size() * name.size(), image.size());
}

TEST(ElfObject, ReadsAFileOfTheSystem) {
    ElfObject object = readElfFile("/proc/self/exe");
    EXPECT_TRUE(object.interpreter.has_value());
    EXPECT_FALSE(object.needed.empty());
}

TEST(ElfObject, TellsAFileThatIsNotElf) {
    EXPECT_THROW(readImage("#!/bin/sh\necho hello\n"), NotElfError);
    EXPECT_THROW(readImage(""), NotElfError);
}

TEST(ElfObject, TellsAFileThatCannotBeOpened) {
    EXPECT_THROW(readElfFile("/nonexistent/libnothing.so"), ElfError);
    EXPECT_THROW(readElfFile("/"), ElfError);
}

TEST(ElfObject, TellsATruncatedHeader) {
    std::string image = ElfImage::library({"libc.so.6"}).bytes();
    for (std::size_t size : {5, 16, 40, 63})
        EXPECT_EQ(problemOf(image.substr(0, size)), "the ELF header is cut short (" + std::to_string(size) + " bytes)");
}

TEST(ElfObject, TellsAnUnknownClass) {
    std::string image = ElfImage::library({"libc.so.6"}).bytes();
    image[EI_CLASS] = 7;
    EXPECT_EQ(problemOf(image), "an ELF header of an unknown class or byte order");
}

TEST(ElfObject, TellsProgramHeadersBeyondTheFile) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    std::string image = library.bytes();
    library.put(image, 32, image.size() + 100, 8); // e_phoff
    EXPECT_NE(problemOf(image), "no error");
}

TEST(ElfObject, TellsASegmentBeyondTheFile) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    library.interpreter = "/lib64/ld-linux-x86-64.so.2";
    std::string image = library.bytes();
    const std::size_t interpreterHeader = library.layout().programHeaders + 56;
    library.put(image, interpreterHeader + 8, image.size() + 1, 8); // p_offset of PT_INTERP
    EXPECT_EQ(problemOf(image), "the interpreter's name at offset " + std::to_string(image.size() + 1) +
                                    ", 28 bytes, lies beyond the end of the file");
}

TEST(ElfObject, TellsADynamicSectionCutShort) {
    std::string image = ElfImage::library({"libc.so.6"}).bytes();
    EXPECT_NE(problemOf(image.substr(0, image.size() - 8)).find("the dynamic section"), std::string::npos);
}

TEST(ElfObject, TellsAStringIndexOutOfRange) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    library.extraEntries = {{DT_NEEDED, 9999}};
    EXPECT_EQ(problemOf(library.bytes()),
              "string table index 9999 out of range (size " + std::to_string(library.layout().stringsSize) + ")");
}

TEST(ElfObject, TellsAStringThatRunsPastItsTable) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    std::string image = library.bytes();
    image[library.layout().strings + library.layout().stringsSize - 1] = 'x'; // the last string loses its end
    EXPECT_EQ(problemOf(image), "the string at index 1 runs past the string table");
}

TEST(ElfObject, TellsAStringTableOutsideEverySegment) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    library.extraEntries = {{DT_STRTAB, 0x10}}; // read after the first, so it wins
    EXPECT_EQ(problemOf(library.bytes()), "the dynamic string table's address 16 lies in no loaded segment");
}

TEST(ElfObject, TellsAStringTableBeyondTheFile) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    library.extraEntries = {{DT_STRSZ, 1 << 20}};
    EXPECT_NE(problemOf(library.bytes()).find("the dynamic string table at offset"), std::string::npos);
}

TEST(ElfObject, TellsNeedsWithoutAStringTable) {
    ElfImage library = ElfImage::library({"libc.so.6"});
    std::string image = library.bytes();
    // DT_STRTAB is the entry after DT_NEEDED: make it an entry the reader ignores.
    library.put(image, library.layout().dynamic + 16, DT_DEBUG, 8);
    EXPECT_EQ(problemOf(image), "the dynamic section names strings but has no string table");
}

} // namespace
} // namespace qxqr
