#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the seed inputs of the fuzz targets into fuzz/corpus/.

The script target starts from every script the project already holds: the
example rules, the script fixtures of the tool's tests, the rules blocks of
the documents, and the string literals of the C++ tests that hold a
statement (with the conditions that the grammar tests wrap into an exclude
rule). The file reader's target starts from those too and from a few odd
files of its own, written here. The ELF reader's target starts from small
ELF files made here, whole and spoiled, in both classes and byte orders.

A seed is named seed-<where it comes from>-<hash of its text>, so running
this again after the sources changed touches only what changed. Every seed-*
file is rewritten; the crash-* inputs beside them are kept.

    fuzz/make_seeds.py            # from the top of the source tree
"""

import hashlib
import pathlib
import re
import struct

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


def elf_image(wide, big, needed, interpreter=None, soname=None, runpath=None, extra=()):
    """A small ELF file: the header, PT_LOAD over the whole file, PT_INTERP, PT_DYNAMIC, then the
    interpreter's name, the dynamic string table and the dynamic section (with the `extra` entries
    (tag, value) last), as a loader reads it."""
    order, word = (">" if big else "<"), ("Q" if wide else "I")
    header_size, entry_size = (64, 56) if wide else (52, 32)
    strings, entries = b"\0", []
    for tag, text in [(1, name) for name in needed] + [(14, soname), (29, runpath)]:
        if text is not None:
            entries.append((tag, len(strings)))
            strings += text.encode() + b"\0"
    count = 3 if interpreter else 2
    interp = interpreter.encode() + b"\0" if interpreter else b""
    strings_at = header_size + count * entry_size + len(interp)
    dynamic_at = -(-(strings_at + len(strings)) // 8) * 8
    base = 0x400000
    entries += [(5, base + strings_at), (10, len(strings))] + list(extra) + [(0, 0)]
    dynamic = b"".join(struct.pack(order + word * 2, tag, value) for tag, value in entries)
    size = dynamic_at + len(dynamic)

    def segment(kind, offset, length):
        if wide:
            return struct.pack(order + "IIQQQQQQ", kind, 4, offset, base + offset, base + offset, length, length, 8)
        return struct.pack(order + "IIIIIIII", kind, offset, base + offset, base + offset, length, length, 4, 8)

    segments = segment(1, 0, size) + (segment(3, header_size + count * entry_size, len(interp)) if interp else b"")
    segments += segment(2, dynamic_at, len(dynamic))
    ident = b"\x7fELF" + bytes([2 if wide else 1, 2 if big else 1, 1]) + bytes(9)
    machine = (22 if big else 62) if wide else (20 if big else 3)  # s390, x86-64, ppc, i386
    header = ident + struct.pack(order + "HHI" + word * 3 + "IHHHHHH", 3, machine, 1, 0, header_size, 0, 0,
                                 header_size, entry_size, count, 0, 0, 0)
    image = header + segments + interp + strings
    return image + bytes(dynamic_at - len(image)) + dynamic


def elf_seeds():
    """Whole images of each class and byte order, then the ways a file goes wrong."""
    seeds = {}
    for wide in (True, False):
        for big in (False, True):
            name = "%s-%s" % ("64" if wide else "32", "msb" if big else "lsb")
            seeds["program-" + name] = elf_image(wide, big, ["libc.so.6", "libm.so.6"], "/lib/ld.so.1",
                                                 runpath="$ORIGIN/../lib:/opt/$LIB")
            seeds["library-" + name] = elf_image(wide, big, ["libc.so.6"], soname="libx.so.1")
    whole = seeds["program-64-lsb"]
    seeds["cut-in-header"] = whole[:40]
    seeds["cut-in-dynamic"] = whole[:-20]
    seeds["string-index-out-of-range"] = elf_image(True, False, ["libc.so.6"], extra=[(1, 4000)])
    # One string named by many entries: the strings read outweigh the file.
    seeds["one-need-named-often"] = elf_image(True, False, ["n" * 64], extra=[(1, 1)] * 100)
    return seeds


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
    elf = elf_seeds()
    write_seeds(CORPUS / "elf", {"seed-" + name: data for name, data in elf.items()})
    print("fuzz seeds: %d scripts, %d odd files, %d ELF files" % (len(scripts), len(ODD_FILES), len(elf)))


if __name__ == "__main__":
    main()
