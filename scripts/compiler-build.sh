#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# One build of `make test-compilers`, warnings being errors:
#   scripts/compiler-build.sh GENERATOR JOBS NAME:COMPILER:STANDARD:WHAT[:LAYOUT,...]
# configures build-compiler-NAME with COMPILER and C++STANDARD. WHAT is
#   tests    build everything, run every test (but the second build of
#            the reproducibility check)
#   library  build only what is installed, run the installed package's
#            consumer test (a build that proves that the sources compile)
# Each LAYOUT, in turn, in the same folder, changes the installation that
# the consumer test checks:
#   absolute         an absolute libdir, outside the prefix
#   static           a static library, with a relative libdir
#   static-absolute  a static library, with an absolute libdir
set -euo pipefail
generator=$1
jobs=$2
IFS=: read -r name compiler standard what layouts <<<"$3"

dir=build-compiler-$name
# Not optimised, for time: the optimised build, and the warnings that only
# optimisation finds, are those of `make test`.
options=(-G "$generator" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler"
         -DCMAKE_CXX_STANDARD="$standard" -DQXQR_WERROR=ON)
# layout_options LAYOUT: the options of LAYOUT, in the array `extra`.
layout_options() {
    local absolute=(-DCMAKE_INSTALL_PREFIX="$PWD/$dir/install" -DCMAKE_INSTALL_LIBDIR="$PWD/$dir/install-lib64")
    local relative=(-DCMAKE_INSTALL_PREFIX=/usr/local -DCMAKE_INSTALL_LIBDIR=lib)
    case $1 in
        "") extra=() ;;
        absolute) extra=("${absolute[@]}") ;;
        static) extra=(-DBUILD_SHARED_LIBS=OFF "${relative[@]}") ;;
        static-absolute) extra=(-DBUILD_SHARED_LIBS=OFF "${absolute[@]}") ;;
        *) echo "compiler-build: unknown layout '$1'" >&2; exit 2 ;;
    esac
}

echo "== $name: $compiler, C++$standard, $what${layouts:+, layouts $layouts}"
start=$SECONDS
IFS=, read -r -a layout_list <<<"${layouts:-}"
[ ${#layout_list[@]} -gt 0 ] || layout_list=("")
for layout in "${layout_list[@]}"; do
    layout_options "$layout"
    cmake -S . -B "$dir" "${options[@]}" "${extra[@]}" >/dev/null
    case $what in
        tests)
            cmake --build "$dir" -j "$jobs"
            # make test checks already that two builds give the same bytes;
            # the second build that it takes would double this one's time.
            (cd "$dir" && ctest --output-on-failure -j "$jobs" -E '^reproducible_binaries$')
            ;;
        library)
            cmake --build "$dir" -j "$jobs" --target installed_files
            (cd "$dir" && ctest --output-on-failure -R '^consume_installed_package$')
            ;;
        *) echo "compiler-build: unknown kind of build '$what'" >&2; exit 2 ;;
    esac
done
echo "== $name: $((SECONDS - start)) s"
