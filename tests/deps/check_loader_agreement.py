#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares `qxqr deps` with the system's loader on every program of a directory.

Every dynamically linked ELF executable of the directory (/usr/bin by
default), symbolic links to one included, goes through one run of
`qxqr deps --format json`, and through `ldd` (in batches, in parallel,
each program by its real path: see ldd_batch).
For each program the two sets must be equal: the real paths of the
libraries found, and the names that nothing answers. ldd's linux-vdso,
which the kernel provides and no file holds, is left out. Every program
whose sets differ is printed with both sets, and the check fails.
"""

import argparse
import concurrent.futures
import json
import os
import struct
import subprocess
import sys

PT_INTERP = 3
BATCH = 40


def is_dynamic_executable(path):
    """An ELF file of type ET_EXEC or ET_DYN, executable, with a PT_INTERP program header."""
    if not os.path.isfile(path) or not os.access(path, os.X_OK):
        return False
    try:
        with open(path, "rb") as file:
            header = file.read(64)
            if len(header) < 52 or header[:4] != b"\x7fELF" or header[4] not in (1, 2) or header[5] not in (1, 2):
                return False
            wide = header[4] == 2
            order = "<" if header[5] == 1 else ">"
            if struct.unpack_from(order + "H", header, 16)[0] not in (2, 3):
                return False
            if wide:
                phoff, = struct.unpack_from(order + "Q", header, 32)
                phentsize, phnum = struct.unpack_from(order + "HH", header, 54)
            else:
                phoff, = struct.unpack_from(order + "I", header, 28)
                phentsize, phnum = struct.unpack_from(order + "HH", header, 42)
            file.seek(phoff)
            table = file.read(phentsize * phnum)
    except OSError:
        return False
    for index in range(phnum):
        entry = table[index * phentsize:index * phentsize + 4]
        if len(entry) == 4 and struct.unpack(order + "I", entry)[0] == PT_INTERP:
            return True
    return False


def programs_in(directory):
    names = sorted(os.listdir(directory))
    return [path for path in (os.path.join(directory, name) for name in names) if is_dynamic_executable(path)]


def loader_line(line):
    """What one line of ldd's list gives: a real path, "not found: NAME", or None."""
    line = line.strip()
    if "=>" in line:
        name, _, found = line.partition("=>")
        found = found.strip()
        if found.startswith("not found"):
            return "not found: " + name.strip()
        return os.path.realpath(found.rsplit(" (0x", 1)[0].strip())
    if line.startswith("/"):
        return os.path.realpath(line.rsplit(" (0x", 1)[0].strip())
    return None  # linux-vdso and the like: no file


def ldd_batch(programs):
    """ldd's sets, by program. ldd is given each program's real path: it hands the loader the name it
    is given, and the loader takes $ORIGIN from that name, where a program that runs gets it from
    its real path (/usr/bin/java, a link into the JDK, finds its libraries beside the JDK's
    launcher when it runs, but not under ldd /usr/bin/java)."""
    real = sorted({os.path.realpath(program) for program in programs})
    run = subprocess.run(["ldd"] + real, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                         errors="surrogateescape")
    by_path, current = {}, None
    headers = {path + ":": path for path in real}
    for line in run.stdout.splitlines():
        if line in headers:
            current = headers[line]
            by_path[current] = set()
        elif current is not None:
            found = loader_line(line)
            if found:
                by_path[current].add(found)
    if len(real) == 1 and not by_path:  # ldd writes no header for a single file
        by_path[real[0]] = {found for found in map(loader_line, run.stdout.splitlines()) if found}
    return {program: by_path[os.path.realpath(program)] for program in programs
            if os.path.realpath(program) in by_path}


def loader_sets(programs, jobs):
    batches = [programs[start:start + BATCH] for start in range(0, len(programs), BATCH)]
    sets = {}
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for result in pool.map(ldd_batch, batches):
            sets.update(result)
    return sets


def deps_sets(qxqr, programs):
    run = subprocess.run([qxqr, "deps", "--format", "json", "--allow-missing", "--", "-"],
                         input="\n".join(programs) + "\n", stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                         text=True, errors="surrogateescape")
    if run.returncode != 0:
        sys.exit(f"qxqr deps failed (status {run.returncode}):\n{run.stderr}")
    sets = {program: set() for program in programs}
    for item in json.loads(run.stdout)["dependencies"]:
        if item["link"] == "start":
            continue
        if item["fate"] == "not found":
            sets[item["start"]].add("not found: " + item["name"])
        else:
            sets[item["start"]].add(os.path.realpath(item["file"]))
    return sets


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--qxqr", required=True)
    options.add_argument("--directory", default="/usr/bin")
    options.add_argument("--jobs", type=int, default=2)
    arguments = options.parse_args()

    programs = programs_in(arguments.directory)
    if not programs:
        sys.exit(f"no dynamically linked programs in {arguments.directory}")
    ours = deps_sets(os.path.abspath(arguments.qxqr), programs)
    loaders = loader_sets(programs, arguments.jobs)
    differing = 0
    for program in programs:
        expected = loaders.get(program)
        if expected is None:
            print(f"{program}: ldd gives no list", file=sys.stderr)
            differing += 1
        elif ours[program] != expected:
            differing += 1
            print(f"{program}: qxqr deps and ldd differ\n  qxqr deps: {sorted(ours[program])}\n"
                  f"  ldd:       {sorted(expected)}", file=sys.stderr)
    print(f"{len(programs) - differing} of {len(programs)} programs agree")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
