#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the library a second time, in another folder, as this build was
# configured, and compares the two byte for byte: neither the path of a
# build folder nor the moment of building may end up in what is built. With
# the tool come the end-to-end tests and the example host, a program that
# links the library from its build folder (its runpath names that folder);
# the tool itself, built with the same flags, is left out for the time that
# its second build would take.
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
with_tool=ON
[ -n "$tool" ] || with_tool=OFF
SOURCE_DATE_EPOCH=$(date -u -d "$date" +%s) cmake -S "$source_dir" -B "$work" "${configure_options[@]}" \
    -DBUILD_SHARED_LIBS=$shared -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_INSTALL_LIBDIR="$libdir" \
    -DQXQR_BUILD_TESTS=$with_tool -DQXQR_BUILD_TOOLS=$with_tool >/dev/null

products=(libqxqrscript.a)
[ "$shared" = OFF ] || products=("libqxqrscript.so.$version")
targets=(qxqrscript)
if [ "$with_tool" = ON ]; then
    products+=(tests/tool/host-example/qxqr_host_example)
    targets+=(qxqr_host_example)
fi
cmake --build "$work" --target "${targets[@]}" >/dev/null
for product in "${products[@]}"; do
    if ! cmp "$build_dir/$product" "$work/$product"; then
        echo "$product differs between $build_dir and $work" >&2
        exit 1
    fi
done
rm -rf "$work"
echo "the same bytes in two build folders: ${products[*]}"
