#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that every source file of the project names its licence.

Every file of code, build or script (C++, CMake, Python, shell, the
Makefile, the linker's version script, the templates that configure
fills in) carries "SPDX-License-Identifier: MIT" in a comment on one of
its first two lines: the second, when the first is a "#!" line. The
trees of sample files that the tests and examples walk are data, not
sources, and are left out. In a git checkout the files are those that git
tracks, so that no build folder or other local file counts; elsewhere (an
unpacked release) every file but the build folders.

    check-licence-lines.py SOURCE_DIR
"""

import pathlib
import subprocess
import sys

LICENCE_LINE = "SPDX-License-Identifier: MIT"
SOURCE_SUFFIXES = {".cpp", ".hpp", ".h", ".c", ".py", ".sh", ".bash", ".cmake", ".in", ".map"}
SOURCE_NAMES = {"CMakeLists.txt", "Makefile", "run"}
DATA_TREES = ("tests/tool/fixtures", "examples/demo", "fuzz/corpus")


def is_source(relative):
    if relative.parts[0].startswith(("build", ".git")):
        return False
    if any(relative.as_posix().startswith(tree + "/") for tree in DATA_TREES):
        return False
    return relative.suffix in SOURCE_SUFFIXES or relative.name in SOURCE_NAMES


def project_files(root):
    try:
        listed = subprocess.run(["git", "-C", str(root), "ls-files", "-z"], capture_output=True, check=True)
        return [root / name for name in listed.stdout.decode("utf-8", "surrogateescape").split("\0") if name]
    except (OSError, subprocess.CalledProcessError):
        return sorted(root.rglob("*"))


def names_licence(path):
    with open(path, "rb") as source:
        first_lines = [source.readline() for _ in range(2)]
    return any(LICENCE_LINE.encode() in line for line in first_lines)


def main():
    root = pathlib.Path(sys.argv[1])
    sources = [path for path in project_files(root)
               if path.is_file() and is_source(path.relative_to(root))]
    missing = [path.relative_to(root) for path in sources if not names_licence(path)]
    for path in missing:
        print(f"{path}: no '{LICENCE_LINE}' line at the top", file=sys.stderr)
    if not sources:
        print(f"no source files under {root}", file=sys.stderr)
        return 1
    print(f"{len(sources) - len(missing)} of {len(sources)} source files name their licence")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
