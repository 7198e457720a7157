#!/usr/bin/env python3
"""Runs the README's examples and compares their output with the README.

The README shows a script in the first ```text block after the words
"`project.rules`", and then ```console blocks: each a "$ build/qxqr ..."
command (continued with trailing backslashes) followed by its exact output.
The script is written to a scratch directory as project.rules and each
command is run there with the qxqr given on the command line.
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


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("readme")
    arguments.add_argument("--qxqr", required=True)
    options = arguments.parse_args()
    qxqr = str(Path(options.qxqr).resolve())

    readme = Path(options.readme).read_text(encoding="utf-8")
    script, after = fenced_block(readme, "text", readme.index("`project.rules`"))
    sessions = []
    while "```console\n" in readme[after:]:
        session, after = fenced_block(readme, "console", after)
        sessions.append(session)
    if not sessions:
        sys.exit("the README shows no example after its script")

    with tempfile.TemporaryDirectory() as scratch:
        Path(scratch, "project.rules").write_text(script, encoding="utf-8")
        for session in sessions:
            check_session(qxqr, scratch, session)
    print(f"the README's {len(sessions)} examples show real output")


def check_session(qxqr, scratch, session):
    command_text, _, expected = session.partition("\n")
    while command_text.endswith("\\"):
        continuation, _, expected = expected.partition("\n")
        command_text = command_text[:-1] + " " + continuation.strip()
    command = shlex.split(re.sub(r"^\$ ", "", command_text))
    if command[0] != "build/qxqr":
        sys.exit(f"the README's command should start with build/qxqr: {command_text}")
    run = subprocess.run([qxqr] + command[1:], cwd=scratch, capture_output=True, text=True)
    if run.returncode != 0 or run.stdout != expected:
        sys.exit(f"the README's example gives (status {run.returncode}):\n{run.stdout}{run.stderr}"
                 f"but the README shows:\n{expected}")


if __name__ == "__main__":
    main()
