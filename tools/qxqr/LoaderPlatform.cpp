// SPDX-License-Identifier: MIT
#include "LoaderPlatform.hpp"

#include <elf.h>

namespace qxqr {

namespace {

struct KnownPlatform {
    unsigned machine;
    unsigned char elfClass;
    unsigned char byteOrder;
    const char* multiarch; // Debian's name for the platform's library directories
    const char* platform;  // the machine name the kernel gives the loader
};

const KnownPlatform knownPlatforms[] = {
    {EM_X86_64, ELFCLASS64, ELFDATA2LSB, "x86_64-linux-gnu", "x86_64"},
    {EM_386, ELFCLASS32, ELFDATA2LSB, "i386-linux-gnu", "i686"},
    {EM_AARCH64, ELFCLASS64, ELFDATA2LSB, "aarch64-linux-gnu", "aarch64"},
    {EM_ARM, ELFCLASS32, ELFDATA2LSB, "arm-linux-gnueabihf", "v7l"},
    {EM_RISCV, ELFCLASS64, ELFDATA2LSB, "riscv64-linux-gnu", "riscv64"},
    {EM_PPC64, ELFCLASS64, ELFDATA2LSB, "powerpc64le-linux-gnu", "power8"},
    {EM_S390, ELFCLASS64, ELFDATA2MSB, "s390x-linux-gnu", "z196"},
};

} // namespace

LoaderPlatform LoaderPlatform::of(const ElfKind& kind) {
    for (const KnownPlatform& known : knownPlatforms) {
        if (known.machine == kind.machine && known.elfClass == kind.elfClass && known.byteOrder == kind.byteOrder) {
            const std::string multiarch = known.multiarch;
            return {
                "lib/" + multiarch, known.platform, {"/lib/" + multiarch, "/usr/lib/" + multiarch, "/lib", "/usr/lib"}};
        }
    }
    return {"lib", "", {"/lib", "/usr/lib"}};
}

} // namespace qxqr
