#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the built library, then builds and runs a small program against
# the installed copy twice, with this build's compiler and flags: through the
# CMake package and through pkg-config. Then the installed qxqr must run
# without LD_LIBRARY_PATH (or, where its library goes to a system folder,
# have no run path), and the runtime component alone must hold no file for
# developers.
#
# With a relative libdir everything goes to a scratch prefix. An absolute
# libdir stays where it is at any prefix, so then the build must have been
# configured to install inside its own folder (as `make test-compilers`
# does), and is installed where it says.
set -euo pipefail
settings=$1
consumer_dir=$2
work=$3
# shellcheck source=build-settings.sh.in
source "$settings"

inside_build() { [[ $1/ == "$build_dir"/* ]]; }

rm -rf "$work"
if [[ $libdir == /* ]]; then
    if ! inside_build "$prefix" || ! inside_build "$libdir"; then
        echo "skipped: the absolute libdir $libdir and the prefix $prefix are not inside the build folder"
        exit 77
    fi
    rm -rf "$prefix" "$libdir"
    cmake --install "$build_dir" >/dev/null
    installed_libdir=$libdir
else
    prefix=$work/prefix
    cmake --install "$build_dir" --prefix "$prefix" >/dev/null
    installed_libdir=$prefix/$libdir
fi

if [ "$library_type" = SHARED ]; then
    library=libqxqrscript.so.${version%%.*}
else
    library=libqxqrscript.a
fi
[ -e "$installed_libdir/$library" ] || { echo "$installed_libdir/$library is not installed" >&2; exit 1; }

cmake -S "$consumer_dir" -B "$work/cmake-build" "${configure_options[@]}" \
    -Dqxqrscript_DIR="$installed_libdir/cmake/qxqrscript" >/dev/null
cmake --build "$work/cmake-build" >/dev/null
LD_LIBRARY_PATH=$installed_libdir "$work/cmake-build/consumer"

export PKG_CONFIG_PATH=$installed_libdir/pkgconfig
[ "$(pkg-config --modversion qxqrscript)" = "$version" ]
# The include folder is named plainly, so that pkg-config can tell a
# system one and leave it out.
expected_includedir=$includedir
[[ $includedir == /* ]] || expected_includedir=$prefix/$includedir
[ "$(pkg-config --variable=includedir qxqrscript)" = "$expected_includedir" ]
# shellcheck disable=SC2086,SC2046
"$cxx" $cxxflags -std=c++"$standard" "$consumer_dir/main.cpp" -o "$work/pkg-config-consumer" \
    $(pkg-config --cflags --libs qxqrscript) $ldflags
LD_LIBRARY_PATH=$installed_libdir "$work/pkg-config-consumer"

# A library installed to a folder that the dynamic linker searches anyway
# gives the tool no run path: installed elsewhere, as here, the tool finds
# it only through LD_LIBRARY_PATH.
if [ -n "$tool" ]; then
    installed_tool=$prefix/$bindir/qxqr
    if [ -n "$tool_runpath" ]; then
        env -u LD_LIBRARY_PATH "$installed_tool" --version | grep -qx "qxqr $version"
        echo "installed qxqr runs"
    else
        if readelf -d "$installed_tool" | grep -q 'R\(UN\)\?PATH'; then
            echo "the installed qxqr has a run path, where its library goes to a system folder" >&2
            exit 1
        fi
        LD_LIBRARY_PATH=$installed_libdir "$installed_tool" --version | grep -qx "qxqr $version"
        echo "installed qxqr, without a run path, runs"
    fi
fi

if [[ $libdir != /* ]]; then
    cmake --install "$build_dir" --prefix "$work/runtime" --component runtime >/dev/null
    # The unversioned name libqxqrscript.so is for linking, so for developers.
    if [ -e "$work/runtime/$includedir" ] ||
       [ -n "$(find "$work/runtime" -name '*.pc' -o -name '*.cmake' -o -name 'libqxqrscript.so')" ]; then
        echo "the runtime component holds files for developers:" >&2
        find "$work/runtime" >&2
        exit 1
    fi
    echo "the runtime component holds no files for developers"
fi
