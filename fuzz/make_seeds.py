#!/usr/bin/env python3
"""Writes the seed inputs of the fuzz targets into fuzz/corpus/.

The script target starts from every script the project already holds: the
example rules, the script fixtures of the tool's tests, the rules blocks of
the documents, and the string literals of the C++ tests that hold a
statement (with the conditions that the grammar tests wrap into an exclude
rule). The file reader's target starts from those too and from a few odd
files of its own, written here.

A seed is named seed-<where it comes from>-<hash of its text>, so running
this again after the sources changed touches only what changed. Every seed-*
file is rewritten; the crash-* inputs beside them are kept.

    fuzz/make_seeds.py            # from the top of the source tree
"""

import hashlib
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
CORPUS = ROOT / "fuzz" / "corpus"

STATEMENT = re.compile(r"(^|\n)[ \t]*(exclude|prune|include)[ \t]")
FENCE = re.compile(r"^```(.*)$")
ESCAPES = {"n": "\n", "t": "\t", "r": "\r", "a": "\a", "b": "\b", "f": "\f", "v": "\v", '"': '"', "'": "'",
           "\\": "\\", "?": "?"}

# Files whose bytes matter to the reader beyond their script: line ends, NUL
# bytes, a missing last line end, a byte-order mark, bytes that are no text.
ODD_FILES = {
    "crlf": b"exclude if $ext == .o\r\nprune unless $file exists\r\ninclude [a, b] if c exists\r\n",
    "mixed-line-ends": b"exclude if a exists\nprune if b exists\r\n% a comment\r\n\rexclude if true\n",
    "nul-inside": b"exclude if a exists\n\0exclude if\n",
    "no-final-line-end": b"exclude if a exists\ninclude x if y exists",
    "byte-order-mark": b"\xef\xbb\xbfexclude if a exists\n",
    "latin1-path": b"exclude if $file == /home/j\xe9r\xf4me/x.c\n",
    "empty": b"",
    "continuations": b"include [a, ...\n  b] ... % more\n  if c exists ...\n\n",
}


def decoded(body):
    """The characters of a C++ string literal's body, its escapes resolved."""
    text, i = [], 0
    while i < len(body):
        if body[i] != "\\":
            text.append(body[i])
            i += 1
        elif body[i + 1] == "x":
            digits = re.match(r"[0-9a-fA-F]+", body[i + 2:]).group(0)
            text.append(chr(int(digits, 16)))
            i += 2 + len(digits)
        elif body[i + 1] in "01234567":
            digits = re.match(r"[0-7]{1,3}", body[i + 1:]).group(0)
            text.append(chr(int(digits, 8)))
            i += 1 + len(digits)
        else:
            text.append(ESCAPES[body[i + 1]])
            i += 2
    return "".join(text)


# One token of C++ source that matters here: a comment, a character literal,
# a string literal, or the call that wraps a condition into an exclude rule.
TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|\'(?:[^\'\\\n]|\\.)*\'|"((?:[^"\\\n]|\\.)*)"|(excludeIf)\(', re.S)


def string_literals(source):
    """(text, wrapped in excludeIf) of every string literal, adjacent ones joined."""
    literals, pieces, wrapped, end, call_at = [], [], False, 0, -1
    for token in TOKEN.finditer(source):
        is_literal = token.group(1) is not None
        is_comment = token.group(0).startswith("/")
        # Only blanks and comments may stand between the parts of one literal.
        if pieces and (source[end:token.start()].strip() or not (is_literal or is_comment)):
            literals.append(("".join(pieces), wrapped))
            pieces = []
        if token.group(2):
            call_at = token.end()
        elif is_literal:
            if not pieces:
                wrapped = call_at == token.start()
            pieces.append(decoded(token.group(1)))
        end = token.end()
    if pieces:
        literals.append(("".join(pieces), wrapped))
    return literals


def scripts_of_test(path):
    for text, wrapped in string_literals(path.read_text(encoding="utf-8", errors="surrogateescape")):
        if wrapped:
            yield "exclude if " + text + "\n"
        elif STATEMENT.search(text):
            yield text


def scripts_of_document(path):
    """The rules blocks of a markdown document, as the doc checks read them."""
    info, text = None, []
    for line in path.read_text(encoding="utf-8", errors="surrogateescape").splitlines(keepends=True):
        fence = FENCE.match(line.rstrip("\n"))
        if fence and info is None:
            info, text = fence.group(1).split(), []
        elif fence and not fence.group(1):
            if info[:1] == ["rules"]:
                script = "".join(text)
                yield script[:-1] if "no-final-newline" in info else script
            info = None
        elif info is not None:
            text.append(line)


def sources():
    """(origin name, script) of every script the project holds, in a fixed order."""
    for path in sorted(ROOT.glob("examples/**/*.rules")) + sorted(ROOT.glob("tests/tool/fixtures/**/*.rules")):
        yield path, path.read_text(encoding="utf-8", errors="surrogateescape")
    for path in sorted(ROOT.glob("docs/*.md")):
        for script in scripts_of_document(path):
            yield path, script
    for path in sorted(ROOT.glob("tests/**/*.cpp")) + sorted(ROOT.glob("tests/**/*.hpp")):
        for script in scripts_of_test(path):
            yield path, script


def seed_name(origin, data):
    where = "-".join(origin.relative_to(ROOT).with_suffix("").parts)
    return "seed-%s-%s" % (where, hashlib.sha1(data).hexdigest()[:8])


def write_seeds(folder, seeds):
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("seed-*"):
        old.unlink()
    for name, data in seeds.items():
        (folder / name).write_bytes(data)


def main():
    scripts, seen = {}, set()
    for origin, script in sources():
        data = script.encode("utf-8", errors="surrogateescape")
        if data not in seen:
            seen.add(data)
            scripts[seed_name(origin, data)] = data
    write_seeds(CORPUS / "script", scripts)
    write_seeds(CORPUS / "file_reader", {"seed-odd-" + name: data for name, data in ODD_FILES.items()})
    print("fuzz seeds: %d scripts, %d odd files" % (len(scripts), len(ODD_FILES)))


if __name__ == "__main__":
    main()
