#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares every name that the library exports with the expected list
# (mangled names, one a line, so that each destructor variant counts, each
# with its version: "@@QXQRSCRIPT_1.0", and the version node itself; lines
# that begin with '#' head the sections of the list and blank lines part them).
set -euo pipefail
library=$1
expected=$2

if ! diff <(grep -v -e '^#' -e '^$' "$expected" | LC_ALL=C sort -u) \
          <(nm -D --defined-only "$library" | awk '{print $3}' | LC_ALL=C sort -u); then
    echo "exported symbols differ from $expected ('<' expected only, '>' exported only)" >&2
    exit 1
fi
echo "exported symbols match"
