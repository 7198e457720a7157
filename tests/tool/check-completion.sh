#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Loads qxqr's bash completion as bash-completion would and checks what it
# offers for partly typed command lines, in a folder of known files.
set -euo pipefail
completion=$1
qxqr=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir src
touch project.rules src/main.c

# shellcheck source=../../tools/completion/qxqr.bash
source "$completion"

# What completing the last of the words offers, sorted, on one line.
offers() {
    COMP_WORDS=("$qxqr" "$@")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _qxqr
    printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd ' ' -
}

failures=0
expect() {
    local expected=$1 actual
    shift
    actual=$(offers "$@")
    if [ "$actual" != "$expected" ]; then
        echo "qxqr $*<TAB> offered '$actual', expected '$expected'" >&2
        failures=$((failures + 1))
    fi
}

expect "check" ch
expect "--version" --v
expect "--max-depth --max-files" walk --max
expect "--format" query --for
expect "json text" query --format ""
expect "src" query --root s
expect "project.rules" check p
expect "src" query project.rules -- s
expect "" walk --max-depth ""

[ "$failures" -eq 0 ] && echo "completion offers what was expected"
exit "$failures"
