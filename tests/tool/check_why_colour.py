#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks when `qxqr why` colours its text.

With standard output on a terminal it colours by default; not when the
environment sets NO_COLOR, nor with --color never. (That output which is no
terminal stays plain without NO_COLOR, and that --color always colours, the
cases why-not-a-terminal and why-color show.)
"""

import argparse
import os
import pty
import subprocess
import sys
import tempfile
from pathlib import Path

from terminal import read_until_closed

ESCAPE = "\x1b["


def why_on_terminal(qxqr, directory, options, environment):
    """What `qxqr why` shows on a terminal."""
    controller, terminal = pty.openpty()
    process = subprocess.Popen([qxqr, "why"] + options + ["s.rules", "--", "a.c"], cwd=directory,
                               stdout=terminal, stderr=subprocess.PIPE, env=environment)
    os.close(terminal)
    shown = read_until_closed(controller)
    process.wait()
    os.close(controller)
    if process.returncode != 0:
        sys.exit(f"qxqr why {' '.join(options)} failed: {process.stderr.read().decode()}")
    return shown.decode()


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--qxqr", required=True)
    qxqr = str(Path(arguments.parse_args().qxqr).resolve())
    plain = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}

    with tempfile.TemporaryDirectory() as directory:
        Path(directory, "s.rules").write_text("exclude if $ext == .c\n")
        if ESCAPE not in why_on_terminal(qxqr, directory, [], plain):
            sys.exit("on a terminal, why should colour its text")
        if ESCAPE in why_on_terminal(qxqr, directory, [], dict(plain, NO_COLOR="1")):
            sys.exit("with NO_COLOR set, why should not colour its text")
        if ESCAPE not in why_on_terminal(qxqr, directory, [], dict(plain, NO_COLOR="")):
            sys.exit("an empty NO_COLOR should leave the colours on")
        if ESCAPE in why_on_terminal(qxqr, directory, ["--color", "never"], plain):
            sys.exit("with --color never, why should not colour its text")
    print("why colours a terminal, unless NO_COLOR is set or --color never is given")


if __name__ == "__main__":
    main()
