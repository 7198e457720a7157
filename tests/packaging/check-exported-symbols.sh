#!/usr/bin/env bash
# Compares the library's exported names of its own (everything that is not
# the C++ runtime's) with the expected list, one demangled name a line.
set -euo pipefail
library=$1
expected=$2

actual=$(nm -DC --defined-only "$library" \
    | sed -E 's/^[0-9a-f]+ [A-Za-z] //' \
    | grep -E 'QuorelScript|QuorelRules|pelor|\bkf|\bhb[A-Z]|libqxqrscript' \
    | LC_ALL=C sort -u)

if ! diff <(grep -v '^#' "$expected" | LC_ALL=C sort -u) <(printf '%s\n' "$actual"); then
    echo "exported symbols differ from $expected ('<' expected only, '>' exported only)" >&2
    exit 1
fi
echo "exported symbols match"
