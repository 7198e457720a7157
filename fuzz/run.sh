#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs one fuzz target of a fuzzing build for a while on its committed corpus.
#   fuzz/run.sh BUILD_DIR TARGET SECONDS
# The committed corpus is only read: what the fuzzer finds new goes to
# BUILD_DIR/fuzz-corpus/TARGET, and an input that crashes the library to
# BUILD_DIR/fuzz-crashes/TARGET/, named on the way out; the run then fails.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$1 target=$2 seconds=$3
corpus=fuzz/corpus
# The file reader reads scripts, so it starts from theirs as well, and the
# words of the language guide both; the ELF reader has neither.
dictionary=(-dict=fuzz/script.dict)
case $target in
    file_reader) seeds=("$corpus/file_reader" "$corpus/script") ;;
    elf) seeds=("$corpus/elf"); dictionary=() ;;
    *) seeds=("$corpus/$target") ;;
esac
found=$build/fuzz-corpus/$target
crashes=$build/fuzz-crashes/$target
mkdir -p "$found" "$crashes"

status=0
"$build/fuzz_$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
    "${dictionary[@]}" -artifact_prefix="$crashes/" "$found" "${seeds[@]}" || status=$?
if [ $status -ne 0 ] && [ -n "$(ls -A "$crashes")" ]; then
    echo "fuzz: $target failed; the inputs that did it are in $crashes/:" >&2
    ls -l "$crashes" >&2
fi
exit $status
