#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the script examples of a markdown document through `qxqr check` (or `qxqr lint`).

Marked blocks, by the info string after the opening fence:

    ```rules                    must be accepted
    ```rules reject             must be rejected with a syntax error
    ```rules no-final-newline   (with either) the last line end is removed,
                                for examples about the very end of the text
    ```rules lint               must be accepted; its output is that of
                                `qxqr lint` instead of `qxqr check`

A block fenced as ```output directly after a rules block (blank lines
between them allowed) gives the exact standard output of `qxqr check` for
an accepted example, or the exact standard error for a rejected one. The
example is checked as a file named example.rules. Other blocks are prose.
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile

FENCE = re.compile(r"^```(.*)$")


def read_blocks(path):
    """(line number, info words, text) of every fenced block, in order."""
    blocks = []
    info, start, text = None, 0, []
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            fence = FENCE.match(line.rstrip("\n"))
            if fence and info is None:
                info, start, text = fence.group(1).split(), number, []
            elif fence and not fence.group(1):
                blocks.append((start, info, "".join(text)))
                info = None
            elif info is not None:
                text.append(line)
    return blocks


def examples(blocks):
    """(line, script, must pass, expected output or None) for each rules block."""
    for index, (line, info, text) in enumerate(blocks):
        if not info or info[0] != "rules":
            continue
        if "no-final-newline" in info:
            text = text[:-1] if text.endswith("\n") else text
        following = blocks[index + 1] if index + 1 < len(blocks) else None
        expected = following[2] if following and following[1] == ["output"] else None
        command = "lint" if "lint" in info else "check"
        yield line, text, "reject" not in info, expected, command


def check(qxqr, directory, line, script, must_pass, expected, command):
    with open(os.path.join(directory, "example.rules"), "w", encoding="utf-8", newline="") as file:
        file.write(script)
    run = subprocess.run([qxqr, command, "example.rules"], cwd=directory,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    problems = []
    if must_pass and run.returncode != 0:
        problems.append(f"rejected, but should be accepted:\n{run.stderr}")
    if not must_pass and (run.returncode != 1 or not run.stderr.startswith("Syntax error")):
        problems.append(f"should be rejected with a syntax error (exit {run.returncode}):\n{run.stderr}")
    shown = run.stdout if must_pass else run.stderr
    if expected is not None and shown != expected:
        problems.append(f"output differs:\n--- expected\n{expected}--- actual\n{shown}")
    return [f"example at line {line}: {problem}" for problem in problems]


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("document")
    options.add_argument("--qxqr", required=True)
    arguments = options.parse_args()
    qxqr = os.path.abspath(arguments.qxqr)

    found = list(examples(read_blocks(arguments.document)))
    if not found:
        print(f"{arguments.document}: no rules examples", file=sys.stderr)
        return 1
    failures = []
    with tempfile.TemporaryDirectory() as directory:
        for example in found:
            failures += check(qxqr, directory, *example)
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(found)} examples, {len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
