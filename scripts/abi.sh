#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The library's binary interface and its baseline, with libabigail:
#   scripts/abi.sh write BUILD BASELINE   records BUILD's library as BASELINE
#   scripts/abi.sh check BUILD BASELINE   compares BUILD's library with it
# Only what the library exports counts, and of the types only those that the
# public headers declare (abi/private-types.suppr). check fails on every
# change that a program built against the baseline could notice: a function
# or variable removed, a type or a table of virtual functions changed. A
# function or variable added is no such change, but it fails the check too,
# with its own message, until `make abi-baseline` records it: a baseline
# that lacks part of the interface would not guard that part.
set -euo pipefail
mode=$1
build=$2
baseline=$3

library=$build/libqxqrscript.so.1
abidw_options=(--no-corpus-path --suppressions "$(dirname "$0")/../abi/private-types.suppr")
# Without debugging information abidw sees symbols only, and would let every
# change of a type or a table of virtual functions pass.
if ! readelf -S "$library" | grep -q '\.debug_info'; then
    echo "abi: $library has no debugging information (build it with -g, as RelWithDebInfo and Debug do)" >&2
    exit 1
fi

case $mode in
    write)
        mkdir -p "$(dirname "$baseline")"
        abidw "${abidw_options[@]}" --out-file "$baseline" "$library"
        echo "wrote $baseline"
        ;;
    check)
        current=$(mktemp)
        trap 'rm -f "$current"' EXIT
        abidw "${abidw_options[@]}" --out-file "$current" "$library"
        status=0
        abidiff "$baseline" "$current" || status=$?
        # abidiff's status is a set of bits: 1 an error, 2 a usage error,
        # 4 a change, 8 a change that breaks programs built against the first.
        if ((status & 3)); then
            echo "abi-check: abidiff failed" >&2
            exit 1
        elif ((status & 8)); then
            echo "abi-check: $library breaks the interface recorded in $baseline" >&2
            exit 1
        elif ((status & 4)); then
            echo "abi-check: $library adds to the interface recorded in $baseline;" \
                 "make abi-baseline records the addition" >&2
            exit 1
        fi
        echo "abi-check: $library keeps the interface of $baseline"
        ;;
    *)
        echo "usage: $0 write|check BUILD BASELINE" >&2
        exit 2
        ;;
esac
