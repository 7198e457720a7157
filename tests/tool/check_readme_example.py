#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the README's examples and compares their output with the README.

The README shows a script in the first ```text block after the words
"`project.rules`", and then, in the same section, ```console blocks: each a
"$ build/qxqr ..." command (continued with trailing backslashes) followed by
its exact output, as a terminal would show it: what it writes on standard
output, then what it writes on standard error, which is empty unless the
block shows it. The command must succeed. The script is written to a scratch directory as
project.rules and each command is run there with the qxqr given on the
command line.
"""

import argparse
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path


def fenced_block(text, kind, start):
    opening = text.index("```" + kind + "\n", start) + len(kind) + 4
    closing = text.index("```", opening)
    return text[opening:closing], closing


def console_session(session):
    """The words of a console block's "$ " command (continued with trailing
    backslashes) and the exact output shown after it."""
    command_text, _, expected = session.partition("\n")
    while command_text.endswith("\\"):
        continuation, _, expected = expected.partition("\n")
        command_text = command_text[:-1] + " " + continuation.strip()
    return shlex.split(re.sub(r"^\$ ", "", command_text)), expected


def console_example(text, start):
    """The command and output of the first ```console block after `start`."""
    return console_session(fenced_block(text, "console", start)[0])


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("readme")
    arguments.add_argument("--qxqr", required=True)
    options = arguments.parse_args()
    qxqr = str(Path(options.qxqr).resolve())

    readme = Path(options.readme).read_text(encoding="utf-8")
    script, after = fenced_block(readme, "text", readme.index("`project.rules`"))
    section_end = readme.find("\n## ", after)
    section = readme[:section_end] if section_end >= 0 else readme
    sessions = []
    while "```console\n" in section[after:]:
        session, after = fenced_block(section, "console", after)
        sessions.append(console_session(session))
    if not sessions:
        sys.exit("the README shows no example after its script")

    with tempfile.TemporaryDirectory() as scratch:
        Path(scratch, "project.rules").write_text(script, encoding="utf-8")
        for command, expected in sessions:
            check_session(qxqr, scratch, command, expected)
    print(f"the README's {len(sessions)} examples show real output")


def check_session(qxqr, scratch, command, expected):
    if command[0] != "build/qxqr":
        sys.exit(f"the README's command should start with build/qxqr: {' '.join(command)}")
    run = subprocess.run([qxqr] + command[1:], cwd=scratch, capture_output=True, text=True)
    if run.returncode != 0 or run.stdout + run.stderr != expected:
        sys.exit(f"the README's example gives (status {run.returncode}), on standard output:\n{run.stdout}"
                 f"on standard error:\n{run.stderr}but the README shows:\n{expected}")


if __name__ == "__main__":
    main()
