#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures a project that builds the library as a part of itself, without
# GoogleTest, CLI11 and nlohmann-json to be found, and checks that the
# library brings nothing but itself: no test, no tool, no installation rule.
set -euo pipefail
settings=$1
parent_dir=$2
work=$3
# shellcheck source=build-settings.sh.in
source "$settings"

rm -rf "$work"
cmake -S "$parent_dir" -B "$work" "${configure_options[@]}" -DQXQRSCRIPT_SOURCE_DIR="$source_dir" \
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON --no-warn-unused-cli >/dev/null

tests=$(cd "$work" && ctest -N | sed -n 's/^Total Tests: //p')
[ "$tests" = 1 ] || { echo "expected the parent's one test, found $tests" >&2; exit 1; }
for part in tests tools fuzz bench; do
    [ ! -e "$work/qxqrscript/$part" ] || { echo "the library brought its $part" >&2; exit 1; }
done
# Nothing is built, so any installation rule would fail for want of its file.
cmake --install "$work" --prefix "$work/prefix" >/dev/null
[ ! -e "$work/prefix" ] || { echo "the library brought installation rules:" >&2; find "$work/prefix" >&2; exit 1; }
rm -rf "$work"
echo "as a part of another project, the library brings itself alone"
