#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that a walk that would never end stops at the default depth limit.

Every file of rules/endless.rules includes a file one directory further
down, so only the limit ends the walk: the answer must hold the start file
and the 1000 steps below it, then the counts, and the message must name the
file 1001 steps down.
"""

import argparse
import subprocess
import sys
from pathlib import Path

DEFAULT_DEPTH = 1000


def below(steps):
    return "/x" * steps + "/a.c"


def expected_answer():
    lines = ["a.c: kept\n", f"{below(1)}: kept (included by a.c)\n"]
    lines += [f"{below(step)}: kept (included by {below(step - 1)})\n" for step in range(2, DEFAULT_DEPTH + 1)]
    return "".join(lines) + f"{DEFAULT_DEPTH + 1} kept, 0 excluded, 0 pruned\n"


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--qxqr", required=True)
    arguments.add_argument("--fixtures", required=True)
    options = arguments.parse_args()

    command = [str(Path(options.qxqr).resolve()), "walk", "rules/endless.rules", "--", "a.c"]
    run = subprocess.run(command, cwd=options.fixtures, capture_output=True, text=True)
    message = (f"qxqr: walk stopped at {below(DEFAULT_DEPTH + 1)} (included by {below(DEFAULT_DEPTH)}): "
               f"include depth {DEFAULT_DEPTH + 1}, beyond --max-depth {DEFAULT_DEPTH}\n")
    if run.returncode != 1:
        sys.exit(f"exit status {run.returncode}, expected 1")
    if run.stdout != expected_answer():
        sys.exit(f"the answer differs from the walk down to depth {DEFAULT_DEPTH}: ...{run.stdout[-300:]!r}")
    if run.stderr != message:
        sys.exit(f"the message differs: {run.stderr[:300]!r}...")
    print(f"an endless walk stops at the default depth of {DEFAULT_DEPTH}")


if __name__ == "__main__":
    main()
