#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures the sources afresh with SOURCE_DATE_EPOCH set and checks that
# the library's build date is that moment's day in UTC, not today's date.
set -euo pipefail
settings=$1
work=$2
# shellcheck source=build-settings.sh.in
source "$settings"

rm -rf "$work"
# 1700000000 is 2023-11-14 22:13:20 UTC, already the 15th in the local time
# zone set here (UTC+9), so a date taken in local time would show.
TZ=JST-9 SOURCE_DATE_EPOCH=1700000000 cmake -S "$source_dir" -B "$work" "${configure_options[@]}" \
    -DQXQR_BUILD_TESTS=OFF -DQXQR_BUILD_TOOLS=OFF >/dev/null
expected='const char* libqxqrscript_build_date = "2023-11-14";'
if ! grep -qxF "$expected" "$work/src/version.cpp"; then
    echo "expected the line: $expected" >&2
    cat "$work/src/version.cpp" >&2
    exit 1
fi
rm -rf "$work"
echo "build date taken from SOURCE_DATE_EPOCH"
