#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the progress display of `qxqr walk` on a terminal.

A walk is run with its standard error on a pseudo-terminal: the progress
line must appear there and be erased at the end, while standard output
carries the walk alone. With --no-progress the terminal must stay empty, and
with standard output on the terminal too the streaming answer is the only
progress shown.

The progress line waits until the walk has taken half a second. So that the
check does not depend on how fast this machine walks, the start file comes
from standard input, which is held open for longer than that: the walk's
clock runs while it waits for its start files.
"""

import argparse
import os
import pty
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from terminal import read_until_closed

FILES = 1000
LONGER_THAN_THE_DELAY = 0.8  # seconds
ERASE_LINE = "\r\x1b[K"


def make_tree(root):
    directory = Path(root, "many")
    directory.mkdir()
    for number in range(FILES):
        (directory / f"f{number}").touch()
    Path(root, "start").touch()
    # Only the start file includes the directory.
    Path(root, "walk.rules").write_text(
        "exclude if $file == nothing\n"
        "prune if $file == nothing\n"
        "include [$cwd/many] if $name == start\n")


def walk_on_terminal(qxqr, root, options, answer_on_terminal=False):
    """Runs the walk with standard error on a terminal; returns (stdout, terminal text)."""
    controller, terminal = pty.openpty()
    # Unless it is wanted there, standard output goes to a file, so that
    # the walk never waits for a reader while this process reads the
    # terminal.
    output_file = tempfile.TemporaryFile()
    process = subprocess.Popen([qxqr, "walk"] + options + ["--cwd", root, "walk.rules", "--", "-"],
                               cwd=root, stdout=terminal if answer_on_terminal else output_file,
                               stderr=terminal, stdin=subprocess.PIPE)
    os.close(terminal)
    process.stdin.write(b"start\n")
    process.stdin.flush()
    time.sleep(LONGER_THAN_THE_DELAY)
    process.stdin.close()
    shown = read_until_closed(controller)
    process.wait()
    output_file.seek(0)
    output = output_file.read().decode()
    os.close(controller)
    if process.returncode != 0:
        sys.exit(f"qxqr walk {' '.join(options)} failed with status {process.returncode}")
    return output, shown.decode()


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--qxqr", required=True)
    qxqr = str(Path(arguments.parse_args().qxqr).resolve())

    with tempfile.TemporaryDirectory() as root:
        make_tree(root)
        summary = f"{FILES + 1} kept, 0 excluded, 0 pruned\n"

        output, shown = walk_on_terminal(qxqr, root, ["--no-progress"])
        if not output.endswith(summary) or shown != "":
            sys.exit(f"with --no-progress the terminal should stay empty, it shows {shown!r}")

        output, shown = walk_on_terminal(qxqr, root, [])
        if not output.endswith(summary):
            sys.exit(f"the walk's summary is missing: {output[-200:]!r}")
        if "files walked" not in shown or not shown.endswith(ERASE_LINE):
            sys.exit(f"the progress line should show and then be erased, the terminal shows {shown[-200:]!r}")

        _, shown = walk_on_terminal(qxqr, root, [], answer_on_terminal=True)
        # The terminal turns each line end into a carriage return and a line end.
        if not shown.endswith(summary.replace("\n", "\r\n")) or "files walked" in shown:
            sys.exit(f"with the answer on the terminal no progress line should show: {shown[-200:]!r}")
    print("progress shows on a terminal, unless the answer goes there too, and is erased at the end")


if __name__ == "__main__":
    main()
