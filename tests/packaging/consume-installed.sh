#!/usr/bin/env bash
# Installs the built library into a scratch prefix, then builds and runs a
# small program against it twice: through the CMake package and through
# pkg-config.
set -euo pipefail
build_dir=$1
consumer_dir=$2
work=$3

rm -rf "$work"
prefix=$work/prefix
cmake --install "$build_dir" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name libqxqrscript.so.1)")

cmake -S "$consumer_dir" -B "$work/cmake-build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake-build" >/dev/null
LD_LIBRARY_PATH=$libdir "$work/cmake-build/consumer"

export PKG_CONFIG_PATH=$libdir/pkgconfig
[ "$(pkg-config --modversion qxqrscript)" = 1.0.0 ]
# shellcheck disable=SC2046
c++ -std=c++17 "$consumer_dir/main.cpp" -o "$work/pkg-config-consumer" $(pkg-config --cflags --libs qxqrscript)
LD_LIBRARY_PATH=$libdir "$work/pkg-config-consumer"
