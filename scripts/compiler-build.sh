#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# One build of `make test-compilers`, warnings being errors:
#   scripts/compiler-build.sh GENERATOR JOBS NAME:COMPILER:STANDARD:WHAT[:LAYOUT]
# configures build-compiler-NAME with COMPILER and C++STANDARD. WHAT is
#   tests    build everything, run every test (but the second build of
#            the reproducibility check)
#   library  build only what is installed, run the installed package's
#            consumer test (a build that proves that the sources compile)
# LAYOUT changes the installation that the consumer test checks:
#   absolute  an absolute libdir, outside the prefix
#   static    that, with a static library
set -euo pipefail
generator=$1
jobs=$2
IFS=: read -r name compiler standard what layout <<<"$3"

dir=build-compiler-$name
# Not optimised, for time: the optimised build, and the warnings that only
# optimisation finds, are those of `make test`.
options=(-G "$generator" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler"
         -DCMAKE_CXX_STANDARD="$standard" -DQXQR_WERROR=ON)
case ${layout:-} in
    static) options+=(-DBUILD_SHARED_LIBS=OFF) ;&
    absolute) options+=(-DCMAKE_INSTALL_PREFIX="$PWD/$dir/install"
                        -DCMAKE_INSTALL_LIBDIR="$PWD/$dir/install-lib64") ;;
    "") ;;
    *) echo "compiler-build: unknown layout '$layout'" >&2; exit 2 ;;
esac

echo "== $name: $compiler, C++$standard, $what${layout:+, $layout layout}"
start=$SECONDS
cmake -S . -B "$dir" "${options[@]}" >/dev/null
case $what in
    tests)
        cmake --build "$dir" -j "$jobs"
        # make test checks already that two builds give the same bytes; the
        # second build that it takes would double this one's time.
        (cd "$dir" && ctest --output-on-failure -j "$jobs" -E '^reproducible_binaries$')
        ;;
    library)
        cmake --build "$dir" -j "$jobs" --target installed_files
        (cd "$dir" && ctest --output-on-failure -R '^consume_installed_package$')
        ;;
    *) echo "compiler-build: unknown kind of build '$what'" >&2; exit 2 ;;
esac
echo "== $name: $((SECONDS - start)) s"
