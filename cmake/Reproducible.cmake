# SPDX-License-Identifier: MIT
# Two builds of the same sources with the same compiler and options give the
# same bytes, wherever the sources and the build folders are: the paths that
# the compiler writes (debug information, __FILE__) start from ".", and
# the run paths that let programs find the library in the build folder are
# relative to the programs ($ORIGIN). The build date comes from
# SOURCE_DATE_EPOCH when that is set (see src/CMakeLists.txt).
#
# The build folder is listed last: it often lies inside the source folder,
# and the compiler tries the last mapping first.
add_compile_options(
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
