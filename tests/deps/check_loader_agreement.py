#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares `qxqr deps` with the system's loader on every file of a directory.

Every file of the directory (/usr/bin by default), symbolic links
included, goes through `qxqr deps --format paths -- FILE`, as a user would
run it, and through `ldd` (in batches, in parallel, each file by its real
path: see ldd_batch). For each file the two sets must be equal: the real
paths of the libraries found, and the names that nothing answers. ldd's
linux-vdso, which the kernel provides and no file holds, is left out. A
file that is no dynamically linked program (a script, a static program)
gets an empty set from both. A message of qxqr deps other than a name not
found, for a file that ldd lists libraries for, is a difference too, and
so is its exit status: with --allow-missing, 0 for such a file; for any
other file 0, or 1 with every message naming a file it cannot use. Every
file whose sets differ is printed with both sets, and the check fails.
"""

import argparse
import concurrent.futures
import os
import re
import subprocess
import sys

BATCH = 40
NOT_FOUND = re.compile(r"qxqr: (.*): not found \(needed by .*\)")


def files_in(directory):
    return [os.path.join(directory, name) for name in sorted(os.listdir(directory))]


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


def deps_set(qxqr, path):
    """qxqr deps's set for one file, its messages other than the names not found, and its exit status."""
    run = subprocess.run([qxqr, "deps", "--format", "paths", "--allow-missing", "--", path], stdout=subprocess.PIPE,
                         stderr=subprocess.PIPE, text=True, errors="surrogateescape")
    found = {os.path.realpath(line) for line in run.stdout.splitlines()}
    messages = []
    for line in run.stderr.splitlines():
        missing = NOT_FOUND.fullmatch(line)
        if missing:
            found.add("not found: " + missing.group(1))
        else:
            messages.append(line)
    return found, messages, run.returncode


def status_expected(status, messages, listed):
    """Whether qxqr deps ended as it should: every need of a program the loader lists is answered or
    allowed missing; a file that is no dynamically linked program fails only with a message naming it."""
    if listed:
        return status == 0
    return status == 0 or (status == 1 and messages and all(message.startswith("qxqr: ") for message in messages))


def deps_sets(qxqr, paths, jobs):
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        return dict(zip(paths, pool.map(lambda path: deps_set(qxqr, path), paths)))


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--qxqr", required=True)
    options.add_argument("--directory", default="/usr/bin")
    options.add_argument("--jobs", type=int, default=2)
    arguments = options.parse_args()

    paths = files_in(arguments.directory)
    if not paths:
        sys.exit(f"no files in {arguments.directory}")
    ours = deps_sets(os.path.abspath(arguments.qxqr), paths, arguments.jobs)
    loaders = loader_sets(paths, arguments.jobs)
    differing = 0
    for path in paths:
        expected = loaders.get(path, set())
        found, messages, status = ours[path]
        if found != expected or (expected and messages) or not status_expected(status, messages, bool(expected)):
            differing += 1
            print(f"{path}: qxqr deps and ldd differ\n  qxqr deps: {sorted(found)} (exit status {status})\n"
                  f"  ldd:       {sorted(expected)}" + "".join(f"\n  {message}" for message in messages),
                  file=sys.stderr)
    print(f"{len(paths) - differing} of {len(paths)} files agree")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
