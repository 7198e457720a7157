#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs clang-tidy, with the checks of .clang-tidy, over the sources of the
# library and the tool, and the headers they include from the project; fails
# on any finding. The tests are left out: they are more files again than the
# library and the tool, each with GoogleTest's header, and would about double
# the time CI gives this check (some eight minutes of processor time for the
# library and the tool alone).
#   scripts/tidy.sh BUILD_DIR JOBS
# BUILD_DIR is a configured build whose compile_commands.json names the
# sources. What is left of the output is the findings: not the command line
# of each file, nor the count of the warnings met, and hidden, in the system
# headers.
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=$1
jobs=$2
root=$(pwd)

# Each layer's headers are reached through a link in the build folder (see
# src/CMakeLists.txt), and the compiler names them by that path: the filter
# takes those as well as the project's own folders.
layers=$(cd "$build_dir" && pwd)/src/layers

run-clang-tidy-14 -p "$build_dir" -j "$jobs" -quiet \
    -header-filter="^($root/(include|src|tools)|$layers)/" "^$root/(src|tools)/" 2>&1 \
    | sed -E '/^clang-tidy-14 /d; /^[0-9]+ warnings? generated\.$/d'
