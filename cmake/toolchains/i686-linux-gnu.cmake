# SPDX-License-Identifier: MIT
# 32-bit x86 Linux, built on x86_64 with the host's compiler in its -m32 mode
# (Debian's g++-multilib):
#   cmake -S . -B build-i386 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/i686-linux-gnu.cmake
# The programs it builds run on the build machine, so the tests run as usual.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)

set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
set(CMAKE_EXE_LINKER_FLAGS_INIT -m32)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -m32)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -m32)

# 32-bit libraries are looked for in lib32 and i386-linux-gnu folders, never
# among the 64-bit ones; headers and CMake packages come from anywhere.
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB32_PATHS ON)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB64_PATHS OFF)
