#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that `qxqr query -- -` answers each name as soon as it has read it.

Names are written to its standard input one at a time, and the answer to each
must arrive on standard output before the next name is written, as text and
as JSON; the whole output must then be the same as for the names given at
once on the command line.
"""

import argparse
import os
import select
import subprocess
import sys
import tempfile
from pathlib import Path

# Each name with the line that ends its answer in text.
TEXT_ANSWER_ENDS = {"src/a.c": "    includes src/a.h\n", "src/b.o": "src/b.o: excluded\n", "src/c.c": "    includes src/c.h\n"}
NAMES = list(TEXT_ANSWER_ENDS)
WAIT_SECONDS = 60


def read_until(stream, output, answered):
    """Reads from `stream` onto `output` until answered(output) holds."""
    while not answered(output):
        ready, _, _ = select.select([stream], [], [], WAIT_SECONDS)
        if not ready:
            sys.exit(f"no answer within {WAIT_SECONDS} s; so far {output!r}")
        chunk = os.read(stream.fileno(), 65536)
        if not chunk:
            sys.exit(f"the output ended before the answer: {output!r}")
        output += chunk
    return output


def check(qxqr, rules, options, answered):
    """Feeds the names one by one; answered(output, count) tells whether the first count are answered."""
    command = [qxqr, "query"] + options + [rules, "--"]
    process = subprocess.Popen(command + ["-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    output = b""
    try:
        for count, name in enumerate(NAMES, 1):
            process.stdin.write(name.encode() + b"\n")
            process.stdin.flush()
            output = read_until(process.stdout, output, lambda output: answered(output, count))
    except SystemExit:
        process.kill()
        raise
    process.stdin.close()
    output += process.stdout.read()
    if process.wait() != 0:
        sys.exit(f"{' '.join(command)} - failed with status {process.returncode}")
    at_once = subprocess.run(command + NAMES, stdout=subprocess.PIPE, check=True).stdout
    if output != at_once:
        sys.exit(f"streamed answer {output!r} differs from {at_once!r}")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--qxqr", required=True)
    qxqr = str(Path(arguments.parse_args().qxqr).resolve())
    with tempfile.TemporaryDirectory() as root:
        rules = Path(root, "streaming.rules")
        rules.write_text("exclude if $ext == .o\ninclude [$dir/$name.h] if $ext == .c\n")
        check(qxqr, str(rules), [],
              lambda output, count: output.decode().endswith(TEXT_ANSWER_ENDS[NAMES[count - 1]]))
        # In JSON, each file's object is closed before the next name is read.
        check(qxqr, str(rules), ["--format", "json"],
              lambda output, count: output.count(b"\n    }") == count)
    print("query answers each name from standard input before reading the next")


if __name__ == "__main__":
    main()
