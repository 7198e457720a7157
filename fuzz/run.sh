#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs fuzz targets of a fuzzing build for a while on their committed corpus,
# all at once, each for the same time.
#   fuzz/run.sh BUILD_DIR SECONDS TARGET...
# The committed corpus is only read: what a fuzzer finds new goes to
# BUILD_DIR/fuzz-corpus/TARGET, and an input that crashes the library to
# BUILD_DIR/fuzz-crashes/TARGET/, named on the way out; the run then fails.
# Each target's output is kept in BUILD_DIR/fuzz-TARGET.log; its last lines
# are shown when it ends, and all of it when it failed.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$1 seconds=$2
shift 2
corpus=fuzz/corpus

fuzz_one() {
    local target=$1
    # The file reader reads scripts, so it starts from theirs as well, and
    # the words of the language guide both; the ELF reader has neither.
    local dictionary=(-dict=fuzz/script.dict) seeds
    case $target in
        file_reader) seeds=("$corpus/file_reader" "$corpus/script") ;;
        elf) seeds=("$corpus/elf"); dictionary=() ;;
        *) seeds=("$corpus/$target") ;;
    esac
    local found=$build/fuzz-corpus/$target crashes=$build/fuzz-crashes/$target
    mkdir -p "$found" "$crashes"
    "$build/fuzz_$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
        "${dictionary[@]}" -artifact_prefix="$crashes/" "$found" "${seeds[@]}"
}

declare -A runs
for target in "$@"; do
    fuzz_one "$target" > "$build/fuzz-$target.log" 2>&1 &
    runs[$target]=$!
done

status=0
for target in "$@"; do
    log=$build/fuzz-$target.log
    if wait "${runs[$target]}"; then
        echo "fuzz: $target passed"
        grep '^stat::' "$log" || true
    else
        status=1
        cat "$log" >&2
        echo "fuzz: $target failed" >&2
        crashes=$build/fuzz-crashes/$target
        if [ -n "$(ls -A "$crashes")" ]; then
            echo "fuzz: the inputs that did it are in $crashes/:" >&2
            ls -l "$crashes" >&2
        fi
    fi
done
exit $status
