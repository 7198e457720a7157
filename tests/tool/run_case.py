#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs one end-to-end case of the qxqr tool and compares what it did.

A case file holds, in this order:

    # comment lines, saying what the case shows
    + fifo NAME
    $ qxqr query --explain rules/basic.rules -- tree/a.c
    < a line given on standard input (as many as needed)
    > /dev/full
    ? 0
    --- stdout
    the exact standard output, line by line
    --- stderr
    the exact standard error, line by line

"$" gives the command line, split as a POSIX shell would, $'...' included,
so that a word can hold any byte ($'a\nb', $'caf\351'); its first word
names a program given with --program NAME=PATH. ">" sends standard output
to the file named instead of reading it back. "?" gives the exit status.

"+" lines make files that cannot be kept among the fixtures, in a fresh
temporary directory that "@TMP@" stands for everywhere in the case:
"+ file NAME TEXT" (NAME and TEXT with Python's backslash escapes, so "\r",
"\0", "\x20" and "\xff" can be written), "+ unreadable NAME TEXT" (the
same, without read permission), "+ fifo NAME", "+ sized NAME BYTES" (BYTES
NUL bytes that take no room on disk). Standard input is a pipe carrying the
"<" lines, or with "<< FILE" the file itself, or with "<| FILE" a pipe
carrying its bytes. Root may read any file: a case with an unreadable file
then runs its command as the unprivileged user "nobody", and is skipped,
with exit status 77 and the reason, when that user cannot run it.
An absent stdout or stderr section means that stream must stay empty.
Instead of "--- stdout", "--- json" compares the output parsed as JSON with
the section parsed as JSON, and "--- stdout-matches" requires the output to
match the section as a regular expression. The command runs in the
directory given with --in; "@CWD@" in a section stands for that directory's
absolute path. It runs without NO_COLOR in its environment, whatever the
environment of the test run, so that a case shows what the tool does by
itself when its output is no terminal.
"""

import argparse
import difflib
import json
import os
import re
import subprocess
import sys
import tempfile


SKIPPED = 77
TIME_LIMIT = 60

# The escapes of $'...' other than octal and hexadecimal numbers.
DOLLAR_QUOTE_ESCAPES = {"a": b"\a", "b": b"\b", "e": b"\x1b", "f": b"\f", "n": b"\n", "r": b"\r",
                        "t": b"\t", "v": b"\v", "\\": b"\\", "'": b"'", '"': b'"'}


def dollar_quoted(line, start):
    """The bytes of the $'...' whose text begins at `start`, and the index after its closing quote."""
    text = b""
    position = start
    while line[position] != "'":
        if line[position] != "\\":
            text += line[position].encode()
            position += 1
            continue
        escape = line[position + 1]
        if escape in DOLLAR_QUOTE_ESCAPES:
            text += DOLLAR_QUOTE_ESCAPES[escape]
            position += 2
        elif escape == "x":
            digits = re.match(r"[0-9A-Fa-f]{1,2}", line[position + 2:]).group()
            text += bytes([int(digits, 16)])
            position += 2 + len(digits)
        else:
            digits = re.match(r"[0-7]{1,3}", line[position + 1:]).group()
            text += bytes([int(digits, 8) & 0xFF])
            position += 1 + len(digits)
    return text, position + 1


def double_quoted(line, start):
    """The text of the "..." whose text begins at `start`, and the index after its closing quote."""
    text = ""
    position = start
    while line[position] != '"':
        if line[position] == "\\" and line[position + 1] in '"\\$`':
            position += 1
        text += line[position]
        position += 1
    return text.encode(), position + 1


def split_words(line):
    """Splits a command line into words as a POSIX shell does: blanks part words, single quotes
    quote everything, double quotes everything but an escaped quote, backslash, dollar or
    backquote, a backslash quotes the next character, and $'...' gives any bytes through its
    backslash escapes."""
    words = []
    word = None
    position = 0
    while position < len(line):
        character = line[position]
        if character in " \t\n":
            if word is not None:
                words.append(word)
            word = None
            position += 1
            continue
        word = word or b""
        if line.startswith("$'", position):
            text, position = dollar_quoted(line, position + 2)
        elif character == "'":
            end = line.index("'", position + 1)
            text, position = line[position + 1:end].encode(), end + 1
        elif character == '"':
            text, position = double_quoted(line, position + 1)
        elif character == "\\":
            text, position = line[position + 1].encode(), position + 2
        else:
            text, position = character.encode(), position + 1
        word += text
    if word is not None:
        words.append(word)
    # Bytes that are not UTF-8 survive as surrogate escapes, which the
    # subprocess module turns back into the bytes themselves.
    return [word.decode("utf-8", "surrogateescape") for word in words]


def read_case(path):
    case = {"command": None, "stdin": [], "stdin_file": None, "stdin_piped": None, "files": [],
            "stdout_to": None, "status": None, "sections": {}}
    section = None
    with open(path, encoding="utf-8", newline="") as lines:
        for line in lines:
            if line.startswith("--- "):
                section = line[4:].rstrip("\n")
                case["sections"][section] = ""
            elif section is not None:
                case["sections"][section] += line
            elif line.startswith("$ "):
                case["command"] = split_words(line[2:])
            elif line.startswith("+ "):
                case["files"].append(line[2:].rstrip("\n").split(" ", 2))
            elif line.startswith("<< "):
                case["stdin_file"] = line[3:].rstrip("\n")
            elif line.startswith("<| "):
                case["stdin_piped"] = line[3:].rstrip("\n")
            elif line.startswith("< "):
                case["stdin"].append(line[2:])
            elif line.startswith("> "):
                case["stdout_to"] = line[2:].rstrip("\n")
            elif line.startswith("? "):
                case["status"] = int(line[2:])
            elif not line.startswith("#") and line.strip():
                raise ValueError(f"{path}: cannot read the line {line!r}")
    if case["command"] is None or case["status"] is None:
        raise ValueError(f"{path}: a case needs a '$' line and a '?' line")
    return case


def escaped_bytes(text):
    return text.encode("latin-1").decode("unicode_escape").encode("latin-1")


class Skip(Exception):
    pass


def make_file(directory, kind, name, argument=""):
    path = os.path.join(os.fsencode(directory), escaped_bytes(name))
    if kind == "fifo":
        os.mkfifo(path)
    elif kind == "sized":
        with open(path, "wb") as file:
            file.truncate(int(argument))
    elif kind in ("file", "unreadable"):
        with open(path, "wb") as file:
            file.write(escaped_bytes(argument))
        if kind == "unreadable":
            os.chmod(path, 0)
            try:
                open(path, "rb").close()
            except PermissionError:
                return False
            # Root may read any file: the command runs as "nobody" instead.
            os.chmod(directory, 0o755)
            return True
    else:
        raise ValueError(f"cannot make a file of the kind {kind!r}")
    return False


NOBODY = 65534


def as_nobody():
    """Gives up this process's user for the unprivileged "nobody"."""
    os.setgroups([])
    os.setgid(NOBODY)
    os.setuid(NOBODY)


def check_nobody_can_run(command, directory):
    """Skips the case when "nobody" cannot run the program or enter its directory."""
    try:
        subprocess.run([command[0], "--version"], cwd=directory, preexec_fn=as_nobody, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=TIME_LIMIT)
    except (OSError, subprocess.SubprocessError) as error:
        raise Skip(f"this process may read any file (it runs as root), and the unprivileged user "
                   f"that would run the case instead cannot run {command[0]}: {error}")


def standard_input(case):
    """What subprocess.run takes: (stdin, input)."""
    if case["stdin_file"]:
        return open(case["stdin_file"], "rb"), None
    if case["stdin_piped"]:
        with open(case["stdin_piped"], "rb") as file:
            return None, file.read()
    return None, "".join(case["stdin"]).encode()


def differences(name, expected, actual):
    if expected == actual:
        return []
    diff = difflib.unified_diff(expected.splitlines(True), actual.splitlines(True),
                                f"expected {name}", f"actual {name}")
    return [f"{name} differs:\n" + "".join(diff)]


def compare_stdout(sections, actual):
    if "json" in sections:
        try:
            document = json.loads(actual)
        except json.JSONDecodeError as error:
            return [f"stdout is not one JSON document ({error}):\n{actual}"]
        expected = json.loads(sections["json"])
        if document != expected:
            return ["JSON differs:\n" + "".join(difflib.unified_diff(
                json.dumps(expected, indent=2, sort_keys=True).splitlines(True),
                json.dumps(document, indent=2, sort_keys=True).splitlines(True),
                "expected", "actual"))]
        return []
    if "stdout-matches" in sections:
        if re.fullmatch(sections["stdout-matches"], actual) is None:
            return [f"stdout does not match {sections['stdout-matches']!r}:\n{actual}"]
        return []
    return differences("stdout", sections.get("stdout", ""), actual)


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("case")
    options.add_argument("--in", dest="directory", required=True)
    options.add_argument("--program", action="append", default=[], metavar="NAME=PATH")
    arguments = options.parse_args()

    programs = dict(program.split("=", 1) for program in arguments.program)
    with tempfile.TemporaryDirectory(prefix="qxqr-case-") as scratch:
        try:
            return run_case(read_case(arguments.case), os.path.realpath(arguments.directory), scratch, programs)
        except Skip as reason:
            print(f"skipped: {reason}")
            return SKIPPED
        finally:
            # A file made unreadable must not keep its directory from going.
            for path, _, files in os.walk(scratch):
                for name in files:
                    os.chmod(os.path.join(path, name), 0o600)


def with_places(text, directory, scratch):
    return text.replace("@CWD@", directory).replace("@TMP@", scratch)


def run_case(case, directory, scratch, programs):
    as_another_user = False
    for made in case["files"]:
        as_another_user |= make_file(scratch, *made)
    case["sections"] = {name: with_places(text, directory, scratch) for name, text in case["sections"].items()}
    command = [with_places(word, directory, scratch) for word in case["command"]]
    command[0] = programs.get(command[0], command[0])
    for source in ("stdin_file", "stdin_piped"):
        if case[source]:
            case[source] = os.path.join(directory, with_places(case[source], directory, scratch))
    if as_another_user:
        check_nobody_can_run(command, directory)
    stdin, input_bytes = standard_input(case)
    environment = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    stdout = open(case["stdout_to"], "wb") if case["stdout_to"] else subprocess.PIPE
    try:
        run = subprocess.run(command, cwd=directory, stdin=stdin, input=input_bytes,
                             stdout=stdout, stderr=subprocess.PIPE, timeout=TIME_LIMIT, env=environment,
                             preexec_fn=as_nobody if as_another_user else None)
    except subprocess.TimeoutExpired:
        print(f"no answer after {TIME_LIMIT} seconds: the command waits for something", file=sys.stderr)
        return 1
    finally:
        for stream in (stdout, stdin):
            if stream not in (None, subprocess.PIPE):
                stream.close()

    failures = []
    if run.returncode != case["status"]:
        failures.append(f"exit status {run.returncode}, expected {case['status']}")
    failures += compare_stdout(case["sections"], (run.stdout or b"").decode(errors="replace"))
    failures += differences("stderr", case["sections"].get("stderr", ""), run.stderr.decode(errors="replace"))
    for failure in failures:
        print(failure, file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
