#!/usr/bin/env bash
# Builds the library and the tool a second time, in another folder, as this
# build was configured, and compares the two byte for byte: neither the path
# of a build folder nor the moment of building may end up in what is built.
set -euo pipefail
settings=$1
work=$2
# shellcheck source=build-settings.sh.in
source "$settings"

rm -rf "$work"
# The second build takes the first one's build date (see check-build-date.sh).
date=$(sed -n 's/^const char\* libqxqrscript_build_date = "\(.*\)";$/\1/p' "$build_dir/src/version.cpp")
shared=ON
[ "$library_type" = SHARED ] || shared=OFF
SOURCE_DATE_EPOCH=$(date -u -d "$date" +%s) cmake -S "$source_dir" -B "$work" "${configure_options[@]}" \
    -DBUILD_SHARED_LIBS=$shared -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_INSTALL_LIBDIR="$libdir" \
    -DQXQR_BUILD_TESTS=OFF -DQXQR_BUILD_TOOLS="$([ -n "$tool" ] && echo ON || echo OFF)" >/dev/null

products=(libqxqrscript.a)
[ "$shared" = OFF ] || products=("libqxqrscript.so.$version")
[ -z "$tool" ] || products+=(qxqr)
cmake --build "$work" --target qxqrscript $tool >/dev/null
for product in "${products[@]}"; do
    if ! cmp "$build_dir/$product" "$work/$product"; then
        echo "$product differs between $build_dir and $work" >&2
        exit 1
    fi
done
rm -rf "$work"
echo "the same bytes in two build folders: ${products[*]}"
