#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lays out the project's C++ files as .clang-format says.
#   scripts/format.sh check   lists the files whose layout differs, and the lines
#                             that spell a type alias with typedef rather than
#                             using; fails if there is any
#   scripts/format.sh apply   rewrites those files in place
# The files are the tracked .cpp and .hpp files of the folders below; the C
# files under examples/ and tests/tool/fixtures/ are what the demo and the
# tool's tests read, and keep the layout they were written with. One version
# of clang-format lays out every file, as another version may lay out the
# same file differently.
set -euo pipefail
cd "$(dirname "$0")/.."

clang_format=${CLANG_FORMAT:-clang-format-14}
folders=(include src tools tests bench fuzz examples)

sources() {
    local patterns=()
    for folder in "${folders[@]}"; do
        patterns+=("$folder/*.cpp" "$folder/*.hpp")
    done
    git ls-files -z -- "${patterns[@]}"
}

if ! command -v "$clang_format" >/dev/null; then
    echo "format: $clang_format is missing (scripts/install-deps.sh format installs it)" >&2
    exit 1
fi

case "${1:-}" in
    check)
        # One clang-format for each file, as many at once as there are
        # processors: a file that differs is named once, whatever the number
        # of its changes.
        differing=$(sources | xargs -0 -r -n 1 -P "$(nproc)" \
            sh -c '"$0" --dry-run --Werror "$1" 2>/dev/null || echo "$1"' "$clang_format" | sort)
        if [ -n "$differing" ]; then
            echo "format-check: these files differ from the layout of .clang-format (make format rewrites them):" >&2
            echo "$differing" >&2
            exit 1
        fi
        # clang-tidy finds them too, but only in the library and the tool.
        if sources | xargs -0 -r grep -n -w typedef >&2; then
            echo "format-check: type aliases are written with using" >&2
            exit 1
        fi
        ;;
    apply)
        sources | xargs -0 -r "$clang_format" -i
        ;;
    *)
        echo "usage: scripts/format.sh check|apply" >&2
        exit 2
        ;;
esac
