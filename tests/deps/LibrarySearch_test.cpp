// SPDX-License-Identifier: MIT
#include "ElfImage.hpp"
#include "LibrarySearch.hpp"

#include "TempTree.hpp"

#include <elf.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

namespace qxqr {
namespace {

using test::ElfImage;

// A system under a temporary root, with x86-64 libraries put where a test
// wants them, searched as the loader would search it.
class LibrarySearchTest : public testing::Test {
protected:
    void put(const std::string& systemPath, const ElfImage& image = ElfImage::library()) {
        root.file(systemPath.substr(1), image.bytes());
    }

    void remove(const std::string& systemPath) { std::filesystem::remove(root.path(systemPath.substr(1))); }

    // What the search finds for `name` needed by `requester`; "not found", or
    // "failed: PATH: PROBLEM".
    std::string find(const std::string& name, const LoadedObject& requester) {
        ElfFiles files(root.path()); // fresh, so that a file removed is seen gone
        LibrarySearch search({root.path(), libraryPath, configured}, files);
        Resolution resolution = search.find(name, requester, ElfImage::library().kind);
        switch (resolution.outcome) {
        case Resolution::Outcome::found:
            return resolution.path;
        case Resolution::Outcome::failed:
            return "failed: " + resolution.path + ": " + resolution.problem;
        case Resolution::Outcome::notFound:
            break;
        }
        return "not found";
    }

    static LoadedObject loaded(const std::string& path, const ElfObject& object, const LoadedObject* loader = nullptr) {
        return {path, &object, {originOf(path), "lib/x86_64-linux-gnu", "x86_64"}, loader};
    }

    static ElfObject objectWith(std::optional<std::string> rpath, std::optional<std::string> runpath) {
        ElfImage image = ElfImage::library();
        image.rpath = std::move(rpath);
        image.runpath = std::move(runpath);
        std::string bytes = image.bytes();
        return readElfMemory(bytes.data(), bytes.size());
    }

    // Finds `name` once for each directory of `order`, removing the copy
    // found each time, so that every step shows the next place in the order.
    void expectSearchOrder(const std::string& name, const LoadedObject& requester,
                           const std::vector<std::string>& order) {
        for (const std::string& directory : order)
            put(directory + "/" + name);
        for (const std::string& directory : order) {
            EXPECT_EQ(find(name, requester), directory + "/" + name);
            remove(directory + "/" + name);
        }
        EXPECT_EQ(find(name, requester), "not found");
    }

    TempTree root;
    std::string libraryPath;
    std::vector<std::string> configured;
};

TEST_F(LibrarySearchTest, AnObjectWithDtRpathSearchesItFirst) {
    libraryPath = "/env";
    configured = {"/conf"};
    ElfObject object = objectWith("/rpath", std::nullopt);
    LoadedObject requester = loaded("/app/bin/app", object);
    const std::vector<std::string> order = {
        "/rpath", "/env", "/conf", "/lib/x86_64-linux-gnu", "/usr/lib/x86_64-linux-gnu", "/lib", "/usr/lib"};
    expectSearchOrder("libx.so.1", requester, order);
}

TEST_F(LibrarySearchTest, AnObjectWithDtRunpathIgnoresItsDtRpathAndSearchesAfterTheLibraryPath) {
    libraryPath = "/env";
    configured = {"/conf"};
    put("/rpath/libx.so.1");
    ElfObject object = objectWith("/rpath", "/runpath");
    LoadedObject requester = loaded("/app/bin/app", object);
    const std::vector<std::string> order = {"/env", "/runpath", "/conf", "/lib/x86_64-linux-gnu"};
    expectSearchOrder("libx.so.1", requester, order);
}

TEST_F(LibrarySearchTest, DtRpathIsInheritedFromTheLoadersButDtRunpathIsNot) {
    put("/program-rpath/libx.so.1");
    put("/program-runpath/liby.so.1");
    ElfObject programObject = objectWith("/program-rpath", std::nullopt);
    LoadedObject program = loaded("/app/app", programObject);
    ElfObject plain = objectWith(std::nullopt, std::nullopt);
    LoadedObject library = loaded("/app/libplain.so", plain, &program);
    EXPECT_EQ(find("libx.so.1", library), "/program-rpath/libx.so.1");

    ElfObject withRunpath = objectWith(std::nullopt, "/elsewhere");
    LoadedObject runpathLibrary = loaded("/app/librun.so", withRunpath, &program);
    EXPECT_EQ(find("libx.so.1", runpathLibrary), "not found");

    ElfObject runpathProgramObject = objectWith(std::nullopt, "/program-runpath");
    LoadedObject runpathProgram = loaded("/app/app2", runpathProgramObject);
    LoadedObject underIt = loaded("/app/libplain.so", plain, &runpathProgram);
    EXPECT_EQ(find("liby.so.1", underIt), "not found");
}

TEST_F(LibrarySearchTest, ALoaderWithBothPathsLendsNeither) {
    put("/both-rpath/libx.so.1");
    ElfObject both = objectWith("/both-rpath", "/both-runpath");
    LoadedObject program = loaded("/app/app", both);
    ElfObject plain = objectWith(std::nullopt, std::nullopt);
    EXPECT_EQ(find("libx.so.1", loaded("/app/lib.so", plain, &program)), "not found");
}

TEST_F(LibrarySearchTest, TokensComeFromTheObjectThatHoldsThePath) {
    put("/app/lib/libx.so.1");
    put("/app/bin/env/liby.so.1");
    ElfObject programObject = objectWith("$ORIGIN/../lib", std::nullopt);
    LoadedObject program = loaded("/app/bin/app", programObject);
    ElfObject plain = objectWith(std::nullopt, std::nullopt);
    LoadedObject library = loaded("/elsewhere/deep/lib.so", plain, &program);
    EXPECT_EQ(find("libx.so.1", library), "/app/bin/../lib/libx.so.1");
    libraryPath = "$ORIGIN/env";
    EXPECT_EQ(find("liby.so.1", library), "/app/bin/env/liby.so.1");
}

// DF_1_NODEFLIB skips the default directories, configured or not, and the
// configured directories below them; a configured directory elsewhere is
// still searched.
TEST_F(LibrarySearchTest, DfNodeflibSkipsTheDefaultDirectoriesOnly) {
    configured = {"/usr/lib", "/usr/lib/sub", "/usr/lib32", "/conf"};
    put("/conf/libx.so.1");
    put("/usr/lib/libx.so.1");
    put("/usr/lib/liby.so.1");
    put("/usr/lib/sub/libz.so.1");
    put("/usr/lib32/libw.so.1");
    ElfImage image = ElfImage::library();
    image.noDefaultLibraries = true;
    std::string bytes = image.bytes();
    ElfObject object = readElfMemory(bytes.data(), bytes.size());
    EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)), "/conf/libx.so.1");
    EXPECT_EQ(find("liby.so.1", loaded("/app/app", object)), "not found");
    EXPECT_EQ(find("libz.so.1", loaded("/app/app", object)), "not found");
    EXPECT_EQ(find("libw.so.1", loaded("/app/app", object)), "/usr/lib32/libw.so.1");
}

TEST_F(LibrarySearchTest, ALibraryOfAnotherClassOrMachineIsPassedOver) {
    ElfImage wrongClass = ElfImage::library();
    wrongClass.kind = {ELFCLASS32, ELFDATA2LSB, EM_386};
    ElfImage wrongMachine = ElfImage::library();
    wrongMachine.kind.machine = EM_AARCH64;
    put("/first/libx.so.1", wrongClass);
    put("/second/libx.so.1", wrongMachine);
    put("/third/libx.so.1");
    ElfObject object = objectWith("/first:/second:/third", std::nullopt);
    EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)), "/third/libx.so.1");
}

TEST_F(LibrarySearchTest, ALibraryOfTheOtherByteOrderStopsTheSearch) {
    ElfImage bigEndian = ElfImage::library();
    bigEndian.kind.byteOrder = ELFDATA2MSB;
    put("/first/libx.so.1", bigEndian);
    put("/second/libx.so.1");
    ElfObject object = objectWith("/first:/second", std::nullopt);
    EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)),
              "failed: /first/libx.so.1: an ELF file of the other byte order");
}

// The loader checks the machine before the type: a relocatable object of
// another machine is passed over, one of the program's machine is the
// loader's to load, and only a shared object can be loaded.
TEST_F(LibrarySearchTest, AnElfFileOfTheRightKindThatIsNoSharedObjectStopsTheSearch) {
    ElfImage otherMachine = ElfImage::library();
    otherMachine.kind.machine = EM_AARCH64;
    otherMachine.type = ET_REL;
    put("/first/libx.so.1", otherMachine);
    put("/third/libx.so.1");
    ElfObject object = objectWith("/first:/second:/third", std::nullopt);
    EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)), "/third/libx.so.1");

    for (auto [type, name] : {std::pair{ET_REL, "ET_REL"}, {ET_CORE, "ET_CORE"}, {ET_EXEC, "ET_EXEC"}}) {
        ElfImage image = ElfImage::library();
        image.type = type;
        put("/second/libx.so.1", image);
        EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)),
                  std::string("failed: /second/libx.so.1: not a shared object (") + name + ")");
    }
}

TEST_F(LibrarySearchTest, AFileThatIsNoElfFileStopsTheSearch) {
    root.file("first/libx.so.1", "INPUT(-lx)\n");
    put("/second/libx.so.1");
    ElfObject object = objectWith("/first:/second", std::nullopt);
    EXPECT_EQ(find("libx.so.1", loaded("/app/app", object)), "failed: /first/libx.so.1: not an ELF file");
}

TEST_F(LibrarySearchTest, ANameWithASlashIsNotSearched) {
    put("/app/bin/plugins/libp.so");
    put("/usr/lib/libp.so");
    ElfObject object = objectWith(std::nullopt, std::nullopt);
    LoadedObject program = loaded("/app/bin/app", object);
    EXPECT_EQ(find("$ORIGIN/plugins/libp.so", program), "/app/bin/plugins/libp.so");
    EXPECT_EQ(find("/app/bin/plugins/libq.so", program), "not found");

    ElfImage wrongClass = ElfImage::library();
    wrongClass.kind = {ELFCLASS32, ELFDATA2LSB, EM_386};
    put("/app/old.so", wrongClass);
    EXPECT_EQ(find("/app/old.so", program), "failed: /app/old.so: an ELF file of another class or machine");
}

TEST_F(LibrarySearchTest, PathsAreMovedInAndOutOfTheSysroot) {
    ElfFiles files;
    LibrarySearch search({"/sys/root", "", {}}, files);
    EXPECT_EQ(search.hostPath("/usr/lib/libx.so"), "/sys/root/usr/lib/libx.so");
    EXPECT_EQ(search.hostPath("relative/libx.so"), "relative/libx.so");
    EXPECT_EQ(search.systemPath("/sys/root/usr/lib/libx.so"), "/usr/lib/libx.so");
    EXPECT_EQ(search.systemPath("/sys/rootless/x"), "/sys/rootless/x");
}

} // namespace
} // namespace qxqr
