# SPDX-License-Identifier: MIT
# File sizes, offsets and inode numbers of 64 bits, and 64-bit times where
# the C library has them, also where long and pointers have 32 bits. Without
# them, stat() fails with EOVERFLOW on a file of 2 GiB or more, or one dated
# after 2038, and readdir() on an entry whose number does not fit: such a
# file would seem not to exist. Only the library's own calls change; its
# public interface holds no off_t, ino_t or time_t, so hosts may be built
# either way.
include(CheckCXXSourceCompiles)
include(CMakePushCheckState)

add_compile_definitions(_FILE_OFFSET_BITS=64)

cmake_push_check_state(RESET)
set(CMAKE_REQUIRED_DEFINITIONS -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64)
check_cxx_source_compiles([[
#include <ctime>
static_assert(sizeof(std::time_t) == 8, "32-bit time");
int main() { return 0; }
]] QXQR_HAVE_64_BIT_TIME)
cmake_pop_check_state()
# Where time is 64 bits anyway (x86_64), the definition changes nothing.
if(QXQR_HAVE_64_BIT_TIME)
    add_compile_definitions(_TIME_BITS=64)
endif()
