#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds the README's bundling example and compares what `qxqr deps` says with the README.

The README shows, after the words "`examples/bundle.rules`", a ```console
block: a "$ build/qxqr deps ..." command and its exact output, for an
application built here: app/bin/viewer needs app/lib/libimage.so.1 and
app/lib/private/libcodec.so.1 (which needs libinner.so.1 beside it), and
app/plugins holds libtiff-reader.so. The command runs in a scratch
directory that holds the application and examples/bundle.rules. The
output names the system's loader and C library: on a system where they
lie elsewhere, the check is skipped.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tool"))
from check_readme_example import console_example  # noqa: E402
from fixture_builder import Builder  # noqa: E402

SKIPPED = 77


def build_application(builder):
    builder.library("app/lib/libimage.so.1")
    builder.library("app/lib/private/libinner.so.1")
    builder.library("app/lib/private/libcodec.so.1", ["app/lib/private/libinner.so.1"])
    builder.library("app/plugins/libtiff-reader.so", ["app/lib/libimage.so.1"])
    return builder.program("app/bin/viewer", ["app/lib/libimage.so.1", "app/lib/private/libcodec.so.1"])


def system_files(program):
    """The absolute paths the loader names for `program` (its interpreter, the C library)."""
    listing = subprocess.run(["ldd", program], stdout=subprocess.PIPE, text=True).stdout
    files = set()
    for line in listing.splitlines():
        line = line.strip().rsplit(" (0x", 1)[0]
        place = line.partition(" => ")[2] if " => " in line else line
        if place.startswith("/"):
            files.add(place)
    return files


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("readme")
    arguments.add_argument("--qxqr", required=True)
    arguments.add_argument("--compiler", required=True)
    arguments.add_argument("--rules", required=True, help="examples/bundle.rules")
    options = arguments.parse_args()

    readme = open(options.readme, encoding="utf-8").read()
    command, expected = console_example(readme, readme.index("`examples/bundle.rules`"))
    if command[:2] != ["build/qxqr", "deps"]:
        sys.exit(f"the README's command should start with build/qxqr deps: {' '.join(command)}")

    with tempfile.TemporaryDirectory() as scratch:
        program = build_application(Builder(options.compiler, scratch))
        shown = {line.split(":")[0] for line in expected.splitlines() if line.startswith("/")}
        if not shown <= system_files(program):
            print(f"skipped: this system's loader names {sorted(system_files(program))}, "
                  f"not the README's {sorted(shown)}")
            return SKIPPED
        os.makedirs(os.path.join(scratch, "examples"))
        shutil.copy(options.rules, os.path.join(scratch, "examples", "bundle.rules"))
        run = subprocess.run([os.path.abspath(options.qxqr)] + command[1:], cwd=scratch, capture_output=True,
                             text=True)
    if run.returncode != 0 or run.stdout != expected:
        sys.exit(f"the README's example gives (status {run.returncode}):\n{run.stdout}{run.stderr}"
                 f"but the README shows:\n{expected}")
    print("the README's bundling example output is real")
    return 0


if __name__ == "__main__":
    sys.exit(main())
