#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds small programs and libraries with the compiler and checks `qxqr deps` on them.

Each fixture states the closure it expects: the libraries of the fixture
that are found (by their place in the fixture), and the names that nothing
answers. The C library and the loader come with every program and are
checked to be there. Every fixture's whole closure is compared with the
system's loader (ldd) as well. Then the forms of the output, the rules,
--copy-to and the files that are no loadable ELF file are checked on them.
"""

import argparse
import json
import os
import subprocess
import sys
import tempfile

from fixture_builder import Builder

FAILURES = []


def check(condition, message):
    if not condition:
        FAILURES.append(message)


def run_deps(qxqr, arguments, env=None):
    return subprocess.run([qxqr, "deps"] + arguments, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          env=env)


def closure_of(qxqr, program, options, env):
    run = run_deps(qxqr, ["--format", "json", "--allow-missing"] + options + ["--", program], env)
    check(run.returncode == 0, f"{program}: qxqr deps failed:\n{run.stderr}")
    found = set()
    for item in json.loads(run.stdout or '{"dependencies": []}')["dependencies"]:
        if item["link"] == "start":
            continue
        found.add("not found: " + item["name"] if item["fate"] == "not found" else os.path.realpath(item["file"]))
    return found


def loader_closure(program, env):
    run = subprocess.run(["ldd", program], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=env)
    found = set()
    for line in run.stdout.splitlines():
        line = line.strip()
        if "=>" in line:
            name, _, place = line.partition("=>")
            place = place.strip()
            found.add("not found: " + name.strip() if place.startswith("not found")
                      else os.path.realpath(place.rsplit(" (0x", 1)[0]))
        elif line.startswith("/"):
            found.add(os.path.realpath(line.rsplit(" (0x", 1)[0]))
    return found


def system_part(found, root):
    return {item for item in found if not item.startswith(root + "/") and not item.startswith("not found")}


def environment(library_path):
    env = dict(os.environ)
    env.pop("LD_LIBRARY_PATH", None)
    if library_path is not None:
        env["LD_LIBRARY_PATH"] = library_path
    return env


def check_closure(qxqr, builder, name, program, expected, library_path=None, as_option=False):
    """`expected`: the fixture's libraries (relative paths) and "not found: NAME" entries.
    `library_path` is LD_LIBRARY_PATH, given to qxqr through the environment, or with
    --ld-library-path if `as_option`."""
    options = ["--ld-library-path", library_path] if as_option else []
    found = closure_of(qxqr, program, options, environment(None if as_option else library_path))
    env = environment(library_path)
    root = os.path.realpath(builder.root)
    wanted = {item if item.startswith("not found") else os.path.realpath(builder.path(item)) for item in expected}
    local = found - system_part(found, root)
    check(local == wanted, f"{name}: the closure's own part is {sorted(local)}, expected {sorted(wanted)}")
    basenames = {os.path.basename(item) for item in system_part(found, root)}
    check("libc.so.6" in basenames, f"{name}: no C library in {sorted(found)}")
    loader = loader_closure(program, env)
    check(found == loader, f"{name}: qxqr deps and ldd differ\n  qxqr deps: {sorted(found)}\n  ldd: {sorted(loader)}")


def build_and_check_closures(qxqr, builder, compiler):
    b = builder
    # $ORIGIN in a DT_RPATH, a chain of two libraries, and a cycle between two others.
    b.library("origin/lib/libb.so.1")
    b.library("origin/lib/liba.so.1", ["origin/lib/libb.so.1"])
    b.library("origin/lib/libq.so.1")
    b.library("origin/lib/libp.so.1", ["origin/lib/libq.so.1"])
    b.library("origin/lib/libq.so.1", ["origin/lib/libp.so.1"])  # libq needs libp needs libq
    program = b.program("origin/bin/app", ["origin/lib/liba.so.1", "origin/lib/libp.so.1"],
                        ["-Wl,--disable-new-dtags,-rpath,$ORIGIN/../lib"])
    check_closure(qxqr, b, "$ORIGIN and a cycle", program,
                  {"origin/lib/liba.so.1", "origin/lib/libb.so.1", "origin/lib/libp.so.1", "origin/lib/libq.so.1"})

    # A DT_RPATH serves the libraries that the program loads; a DT_RUNPATH does not.
    b.library("inherit/deep/liby.so.1")
    b.library("inherit/lib/libx.so.1", ["inherit/deep/liby.so.1"])
    deep, lib = b.path("inherit/deep"), b.path("inherit/lib")
    program = b.program("inherit/rpath-app", ["inherit/lib/libx.so.1"],
                        [f"-Wl,--disable-new-dtags,-rpath,{lib}:{deep}"])
    check_closure(qxqr, b, "DT_RPATH is inherited", program, {"inherit/lib/libx.so.1", "inherit/deep/liby.so.1"})
    program = b.program("inherit/runpath-app", ["inherit/lib/libx.so.1"],
                        [f"-Wl,--enable-new-dtags,-rpath,{lib}:{deep}"])
    check_closure(qxqr, b, "DT_RUNPATH is not inherited", program, {"inherit/lib/libx.so.1", "not found: liby.so.1"})

    # DT_RPATH comes before LD_LIBRARY_PATH, which comes before DT_RUNPATH.
    b.library("order/first/libv.so.1")
    b.library("order/second/libv.so.1")
    first, second = b.path("order/first"), b.path("order/second")
    rpath_app = b.program("order/rpath-app", ["order/first/libv.so.1"], [f"-Wl,--disable-new-dtags,-rpath,{first}"])
    runpath_app = b.program("order/runpath-app", ["order/first/libv.so.1"],
                            [f"-Wl,--enable-new-dtags,-rpath,{first}"])
    for as_option in (True, False):
        check_closure(qxqr, b, "DT_RPATH before LD_LIBRARY_PATH", rpath_app, {"order/first/libv.so.1"},
                      second, as_option)
        check_closure(qxqr, b, "LD_LIBRARY_PATH before DT_RUNPATH", runpath_app, {"order/second/libv.so.1"},
                      second, as_option)

    # A soname already loaded is not searched again: libu needs libv, and
    # finds the copy the program loaded through its own DT_RUNPATH, not the
    # one in libu's.
    b.library("loaded/libu.so.1", ["order/second/libv.so.1"], [f"-Wl,--enable-new-dtags,-rpath,{second}"])
    program = b.program("loaded/app", ["order/first/libv.so.1", "loaded/libu.so.1"],
                        [f"-Wl,--enable-new-dtags,-rpath,{first}:{b.path('loaded')}"])
    check_closure(qxqr, b, "a soname already loaded", program, {"order/first/libv.so.1", "loaded/libu.so.1"})

    # A program started through a symbolic link finds $ORIGIN where it really
    # lies, as when it runs. (ldd, which hands the loader the name as given,
    # takes the link's directory instead; running the program shows the
    # loader's own answer.)
    b.library("linked/real/lib/libo.so.1")
    real = b.program("linked/real/bin/app", ["linked/real/lib/libo.so.1"],
                     ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"])
    os.makedirs(b.path("linked/elsewhere"))
    os.symlink(real, b.path("linked/elsewhere/app"))
    found = closure_of(qxqr, b.path("linked/elsewhere/app"), [], environment(None))
    check(os.path.realpath(b.path("linked/real/lib/libo.so.1")) in found,
          f"a program started through a link: {sorted(found)}")
    ran = subprocess.run([b.path("linked/elsewhere/app")], env=environment(None))
    check(ran.returncode == 0, f"the program started through a link loads its library (status {ran.returncode})")

    # A library marked DF_1_NODEFLIB (-z nodefaultlib) finds nothing in the
    # default directories, configured or not: the C library's libm is not
    # found for it.
    b.library("nodeflib/libnd.so.1", [], ["-Wl,-z,nodefaultlib", "-Wl,--no-as-needed", "-l:libm.so.6", "-Wl,--as-needed"])
    program = b.program("nodeflib/app", ["nodeflib/libnd.so.1"], [f"-Wl,-rpath,{b.path('nodeflib')}"])
    check_closure(qxqr, b, "DF_1_NODEFLIB", program, {"nodeflib/libnd.so.1", "not found: libm.so.6"})
    # Nor in a configured directory below a default one: Debian configures
    # libfakeroot's own directory, where the machine has it.
    fakeroot = "/usr/lib/x86_64-linux-gnu/libfakeroot/libfakeroot-0.so"
    if os.path.exists(fakeroot):
        b.library("nodeflib/libsub.so.1", [],
                  ["-Wl,-z,nodefaultlib", "-Wl,--no-as-needed", fakeroot, "-Wl,--as-needed"])
        program = b.program("nodeflib/sub-app", ["nodeflib/libsub.so.1"], [f"-Wl,-rpath,{b.path('nodeflib')}"])
        check_closure(qxqr, b, "DF_1_NODEFLIB below a default directory", program,
                      {"nodeflib/libsub.so.1", "not found: libfakeroot-0.so"})
    else:
        print(f"no {fakeroot}: the fixture of a configured directory below a default one is left out")

    # A library that is gone.
    b.library("missing/libgone.so.1")
    program = b.program("missing/app", ["missing/libgone.so.1"])
    os.remove(b.path("missing/libgone.so.1"))
    check_closure(qxqr, b, "a missing library", program, {"not found: libgone.so.1"})
    run = run_deps(qxqr, ["--format", "paths", "--", program])
    check(run.returncode == 1 and "qxqr: libgone.so.1: not found (needed by " + program + ")\n" == run.stderr,
          f"a missing library fails a run without --allow-missing: {run.returncode} {run.stderr!r}")

    # A library of the other class comes first in the search and is passed over.
    b.library("class/right/libw.so.1")
    try:
        b.compile("class/wrong/libw.so.1", "int f_libw(void) { return 1; }\n",
                  ["-m32", "-shared", "-fPIC", "-nostdlib", "-Wl,-soname,libw.so.1"])
    except subprocess.CalledProcessError:
        print("the compiler makes no 32-bit library here: the wrong-class fixture is left out")
    else:
        right, wrong = b.path("class/right"), b.path("class/wrong")
        program = b.program("class/app", ["class/right/libw.so.1"],
                            [f"-Wl,--disable-new-dtags,-rpath,{wrong}:{right}"])
        check_closure(qxqr, b, "a library of the other class", program, {"class/right/libw.so.1"})


def loader_names(program):
    """The interpreter and the C library of `program`, as ldd names them."""
    names = {}
    for line in subprocess.run(["ldd", program], stdout=subprocess.PIPE, text=True).stdout.splitlines():
        line = line.strip().rsplit(" (0x", 1)[0]
        if line.startswith("/"):
            names["LOADER"] = line
        elif line.startswith("libc.so.6 => "):
            names["LIBC"] = line.partition(" => ")[2]
    return names


def filled(text, names):
    for key, value in names.items():
        text = text.replace(key, value)
    return text


def check_forms(qxqr, b):
    """The forms of the output, the rules and --copy-to, on an application with a plug-in folder."""
    b.library("bundle/lib/libcommon.so.1")
    b.library("bundle/plugins/libplug.so", ["bundle/lib/libcommon.so.1"],
              ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"])
    with open(b.path("bundle/plugins/notes.txt"), "w") as notes:
        notes.write("not a library\n")
    program = b.program("bundle/bin/app", ["bundle/lib/libcommon.so.1"],
                        ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"])
    with open(b.path("bundle.rules"), "w") as rules:
        rules.write("exclude if $name == libc.so\ninclude $vantor/plugins if $dir == $vantor/bin\n")
    names = dict(loader_names(program), ROOT=b.root)
    common = ["--root", b.path("bundle"), "bundle.rules"]

    def deps(*arguments):
        return subprocess.run([qxqr, "deps"] + list(arguments), cwd=b.root, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True)

    text = deps("--explain", *common, "--", program)
    expected = filled("ROOT/bundle/bin/app: kept\n"
                      "LOADER: kept (interpreter of ROOT/bundle/bin/app)\n"
                      "ROOT/bundle/bin/../lib/libcommon.so.1: kept (needed by ROOT/bundle/bin/app)\n"
                      "LIBC: excluded (needed by ROOT/bundle/bin/app)\n"
                      "    bundle.rules, line 1:\n"
                      "    exclude if $name == libc.so\n"
                      "ROOT/bundle/plugins/libplug.so: kept (included by ROOT/bundle/bin/app)\n"
                      "ROOT/bundle/plugins/notes.txt: kept (included by ROOT/bundle/bin/app)\n"
                      "5 kept, 1 excluded, 0 pruned, 0 not found\n", names)
    check((text.returncode, text.stdout, text.stderr) == (0, expected, ""),
          f"text form:\n{text.stdout}{text.stderr}expected:\n{expected}")

    paths = deps(*common, "--format", "paths", "--", program)
    expected = filled("LOADER\nROOT/bundle/bin/../lib/libcommon.so.1\nLIBC\nROOT/bundle/plugins/libplug.so\n"
                      "ROOT/bundle/plugins/notes.txt\n", names)
    check(paths.stdout == expected, f"paths form:\n{paths.stdout}expected:\n{expected}")

    document = json.loads(deps(*common, "--format", "json", "--", program).stdout)
    by_name = {item["name"]: item for item in document["dependencies"]}
    check(document["summary"] == {"kept": 5, "excluded": 1, "pruned": 0, "not found": 0},
          f"JSON summary: {document['summary']}")
    check(by_name["libc.so.6"]["fate"] == "excluded" and by_name["libc.so.6"]["rule"]["line"] == 1,
          f"JSON libc: {by_name['libc.so.6']}")
    check(by_name["libcommon.so.1"]["soname"] == "libcommon.so.1" and by_name["libcommon.so.1"]["link"] == "needed",
          f"JSON libcommon: {by_name['libcommon.so.1']}")
    check(by_name[program]["includes"] == [b.path("bundle/plugins/libplug.so"), b.path("bundle/plugins/notes.txt")],
          f"JSON app: {by_name[program]}")

    dot = deps(*common, "--format", "dot", "--", program).stdout
    libc_node = filled('"LIBC" [label="libc.so.6", tooltip="LIBC", style=dashed', names)
    plugin_edge = f'"{program}" -> "{b.path("bundle/plugins/libplug.so")}" [style=dotted];'
    check(dot.startswith("digraph dependencies {\n") and dot.endswith("}\n") and libc_node in dot
          and plugin_edge in dot, f"dot form:\n{dot}")

    copy = deps(*common, "--copy-to", "shipped", "--format", "paths", "--", program)
    shipped = sorted(os.listdir(b.path("shipped"))) if os.path.isdir(b.path("shipped")) else []
    wanted = sorted([os.path.basename(names["LOADER"]), "libcommon.so.1", "libplug.so", "notes.txt"])
    check(copy.returncode == 0 and shipped == wanted, f"--copy-to made {shipped}, expected {wanted}: {copy.stderr}")
    with open(b.path("shipped/libcommon.so.1"), "rb") as copied, \
            open(b.path("bundle/lib/libcommon.so.1"), "rb") as original:
        check(copied.read() == original.read(), "--copy-to changed a library")

    # A symbolic link already in the folder under a copy's name is replaced,
    # not written through to where it points.
    victim = b.path("victim.txt")
    with open(victim, "w") as file:
        file.write("untouched\n")
    os.remove(b.path("shipped/libcommon.so.1"))
    os.symlink(victim, b.path("shipped/libcommon.so.1"))
    again = deps(*common, "--copy-to", "shipped", "--format", "paths", "--", program)
    with open(victim) as file:
        check(again.returncode == 0 and file.read() == "untouched\n"
              and not os.path.islink(b.path("shipped/libcommon.so.1")),
              f"--copy-to wrote through a symbolic link: {again.stderr}")


def check_missing_include(qxqr, b):
    """An included file that is not there is told as not found, included by the file whose rule named it,
    in the text form and in the paths form alike."""
    program = b.program("missing/bin/app")
    with open(b.path("missing.rules"), "w") as rules:
        rules.write("include $vantor/plugins/libgone.so if $dir == $vantor/bin\n")
    told = f"{b.path('missing/plugins/libgone.so')}: not found (included by {program})"
    common = ["--root", b.path("missing"), b.path("missing.rules"), "--"]
    text = run_deps(qxqr, common + [program])
    check(text.returncode == 1 and told + "\n" in text.stdout, f"a missing include, text form:\n{text.stdout}")
    paths = run_deps(qxqr, ["--format", "paths"] + common + [program])
    check(paths.returncode == 1 and paths.stderr == f"qxqr: {told}\n",
          f"a missing include, paths form:\n{paths.stderr}")


def check_problems(qxqr, b):
    """Files that are no loadable ELF file: a message naming each, once however many objects need it,
    and the walk goes on."""
    good = b.library("problems/good/libx.so.1")
    b.library("problems/good/liby.so.1", ["problems/good/libx.so.1"])  # needs libx too, through the same path
    with open(good, "rb") as whole:
        cut = whole.read()[:40]
    os.makedirs(b.path("problems/bad"))
    with open(b.path("problems/bad/libx.so.1"), "wb") as bad:
        bad.write(cut)
    program = b.program("problems/app", ["problems/good/libx.so.1", "problems/good/liby.so.1"],
                        [f"-Wl,--disable-new-dtags,-rpath,{b.path('problems/bad')}:{b.path('problems/good')}"])
    with open(b.path("problems/notes.txt"), "w") as notes:
        notes.write("hello\n")
    os.symlink("loop", b.path("problems/loop"))
    run = run_deps(qxqr, ["--format", "paths", "--", b.path("problems/notes.txt"), b.path("problems/loop"),
                          program, "/usr/bin/env"])
    lines = run.stderr.splitlines()
    check(run.returncode == 1 and len(lines) == 3, f"problems: status {run.returncode}:\n{run.stderr}")
    check(lines[0:2] == [f"qxqr: {b.path('problems/notes.txt')}: not an ELF file",
                         f"qxqr: {b.path('problems/loop')}: Too many levels of symbolic links"],
          f"problems with start files:\n{run.stderr}")
    check(len(lines) == 3 and lines[2].startswith(f"qxqr: {b.path('problems/bad/libx.so.1')}: ")
          and lines[2].endswith(f" (needed by {program})"), f"a malformed library:\n{run.stderr}")
    check("libc.so.6" in run.stdout and b.path("problems/good/liby.so.1") in run.stdout,
          f"the walk goes on after the problems:\n{run.stdout}")


def check_sysroot(qxqr, b):
    """--sysroot: a symbolic link is followed inside the root, an absolute target taken from the root
    and ".." stopping at it; the files outside that the same names reach are never read."""
    root = b.path("sysroot")
    inside = "sysroot" + b.root  # where the root holds what the absolute links name
    for name in ("libs.so.1", "libt.so.1"):
        b.library(f"{inside}/outside/{name}")
        os.makedirs(b.path("outside"), exist_ok=True)
        with open(b.path(f"outside/{name}"), "w") as decoy:
            decoy.write("not the library the root holds\n")
    program = b.program("sysroot/usr/bin/app", [f"{inside}/outside/libs.so.1", f"{inside}/outside/libt.so.1"])
    os.makedirs(b.path("sysroot/usr/lib"), exist_ok=True)
    os.makedirs(b.path("sysroot/lib"), exist_ok=True)
    os.symlink(b.path("outside/libs.so.1"), b.path("sysroot/usr/lib/libs.so.1"))
    os.symlink("../" * 20 + b.root.lstrip("/") + "/outside/libt.so.1", b.path("sysroot/lib/libt.so.1"))
    run = run_deps(qxqr, ["--sysroot", root, "--allow-missing", "--copy-to", b.path("sysroot-copy"),
                          "--format", "paths", "--", program])
    found = run.stdout.splitlines()
    check(run.returncode == 0 and f"{root}/usr/lib/libs.so.1" in found and f"{root}/lib/libt.so.1" in found
          and "not an ELF file" not in run.stderr,
          f"--sysroot follows links inside the root: status {run.returncode}\n{run.stdout}{run.stderr}")
    for name in ("libs.so.1", "libt.so.1"):
        with open(b.path(f"{inside}/outside/{name}"), "rb") as original, \
                open(b.path(f"sysroot-copy/{name}"), "rb") as copy:
            check(copy.read() == original.read(), f"--copy-to under --sysroot copies the {name} of the root")

    # A start file outside the root is read as it is, and everything it
    # leads to is looked for inside the root, its $ORIGIN included: the copy
    # of its library beside it on this system is not the one found.
    b.library("host-app/lib/libh.so.1")
    host_program = b.program("host-app/bin/app", ["host-app/lib/libh.so.1"],
                             ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"])
    real_root = os.path.realpath(b.root)
    b.library(f"sysroot{real_root}/host-app/lib/libh.so.1")
    os.makedirs(b.path(f"sysroot{real_root}/host-app/bin"))
    run = run_deps(qxqr, ["--sysroot", root, "--allow-missing", "--format", "paths", "--", host_program])
    found = run.stdout.splitlines()
    check(run.returncode == 0 and f"{root}{real_root}/host-app/bin/../lib/libh.so.1" in found
          and not any(line.startswith(real_root + "/host-app") for line in found),
          f"the $ORIGIN of a start file outside --sysroot is looked up inside it:\n{run.stdout}{run.stderr}")

    # The rules see the files where they are read, DIR in front, as the
    # output names them, and --root is given so too; a rule written for the
    # system under DIR holds there with DIR bound to a variable in front of
    # its paths (see docs/deps.md).
    os.makedirs(b.path("sysroot/etc"), exist_ok=True)
    with open(b.path("sysroot/etc/app.conf"), "w") as settings:
        settings.write("setting\n")
    with open(b.path("sysroot.rules"), "w") as rules:
        rules.write("exclude if $file in [/lib/libt, $sysroot/usr/lib/libs]\n"
                    "include $vantor/etc/app.conf if $file == $sysroot/usr/bin/app\n")
    run = run_deps(qxqr, ["--sysroot", root, "--allow-missing", "--set", f"sysroot={root}", "--root", root,
                          "--copy-to", b.path("sysroot-rules-copy"), b.path("sysroot.rules"), "--", program])
    copied = sorted(os.listdir(b.path("sysroot-rules-copy"))) if os.path.isdir(b.path("sysroot-rules-copy")) else []
    check(run.returncode == 0 and f"{root}/usr/lib/libs.so.1: excluded (needed by {program})\n" in run.stdout
          and f"{root}/lib/libt.so.1: kept (needed by {program})\n" in run.stdout
          and f"{root}/etc/app.conf: kept (included by {program})\n" in run.stdout
          and copied == ["app.conf", "libt.so.1"],
          f"rules under --sysroot: status {run.returncode}, copied {copied}\n{run.stdout}{run.stderr}")


def check_start_files_apart(qxqr, b):
    """Each start file's closure is told as if it were walked alone, and a rule on $caller decides for
    each caller: a library that one program's rule leaves out is still told, counted, and copied as
    kept for the other program that keeps it."""
    runpath = "-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"
    b.library("apart/lib/libdeep.so.1")
    b.library("apart/lib/libshared.so.1", ["apart/lib/libdeep.so.1"], [runpath])
    first = b.program("apart/bin/first", ["apart/lib/libshared.so.1"], [runpath])
    second = b.program("apart/bin/second", ["apart/lib/libshared.so.1"], [runpath])
    with open(b.path("apart.rules"), "w") as rules:
        rules.write("exclude if $name == libshared.so and $caller == $vantor/bin/first\n")
    rules = ["--root", b.path("apart"), b.path("apart.rules")]
    # each found through the $ORIGIN of the object that needs it
    shared, deep = b.path("apart/bin/../lib/libshared.so.1"), b.path("apart/bin/../lib/../lib/libdeep.so.1")

    text = run_deps(qxqr, rules + ["--", first, second]).stdout
    blocks = text.split(f"{second}: kept\n")
    check(len(blocks) == 2 and f"{shared}: excluded (needed by {first})" in blocks[0] and deep not in blocks[0]
          and f"{shared}: kept (needed by {second})" in blocks[1] and f"{deep}: kept (needed by {shared})" in blocks[1],
          f"each start file's closure is told whole:\n{text}")

    document = json.loads(run_deps(qxqr, ["--format", "json"] + rules + ["--", first, second]).stdout)
    check(document["summary"] == {"kept": 6, "excluded": 0, "pruned": 0, "not found": 0},
          f"a library kept by one program counts as kept: {document['summary']}")

    copy = run_deps(qxqr, ["--copy-to", b.path("apart-copy")] + rules + ["--", first, second])
    copied = sorted(os.listdir(b.path("apart-copy"))) if os.path.isdir(b.path("apart-copy")) else []
    check(copy.returncode == 0 and {"libshared.so.1", "libdeep.so.1"} <= set(copied),
          f"a library kept by one program is copied: {copied} {copy.stderr}")

    dot = run_deps(qxqr, ["--format", "dot"] + rules + ["--", first, second]).stdout
    nodes = [line for line in dot.splitlines() if line.startswith(f'  "{shared}" [')]
    check(len(nodes) == 1 and "style=solid" in nodes[0], f"one node for a file met twice, as kept:\n{dot}")


def check_dot_nodes(qxqr, b):
    """The graph's nodes: each once, a name of any bytes written as valid UTF-8, a pruned file shaded,
    a need that nothing answers red."""
    b.library("dot/lib/libgone.so.1")
    b.library("dot/lib/libpruned.so.1", ["dot/lib/libgone.so.1"])
    b.library("dot/lib/libuser.so.1", ["dot/lib/libgone.so.1"], ["-Wl,--enable-new-dtags,-rpath,$ORIGIN"])
    b.program("dot/bin/app", ["dot/lib/libuser.so.1", "dot/lib/libpruned.so.1", "dot/lib/libgone.so.1"],
              ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../lib"])
    os.remove(b.path("dot/lib/libgone.so.1"))
    odd = b.path("dot/caf\udce9")  # the byte E9, which is no UTF-8
    os.makedirs(odd)
    os.rename(b.path("dot/bin/app"), odd + "/app")
    with open(b.path("dot.rules"), "w") as rules:
        rules.write("prune if $name == libpruned.so\n")
    run = subprocess.run([qxqr, "deps", "--format", "dot", "--allow-missing", b.path("dot.rules"), "--", odd + "/app"],
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    dot = run.stdout.decode("utf-8", errors="surrogateescape")
    check(dot.encode("utf-8", errors="replace") == run.stdout, f"the graph is no valid UTF-8:\n{dot!r}")
    lines = dot.splitlines()
    start = "'" + b.path("dot/caf") + "'$'\\\\351''/app'"  # quoted as text output quotes it, '\\' escaped
    check(any(line.startswith(f'  "{start}" [label="app"') for line in lines), f"a name of any bytes:\n{dot}")
    gone = [line for line in lines if line.startswith('  "libgone.so.1" [')]
    check(len(gone) == 1 and 'style="dashed,bold", color=red' in gone[0], f"one red node for what is not found:\n{dot}")
    pruned = [line for line in lines if '[label="libpruned.so.1"' in line]
    check(len(pruned) == 1 and "style=filled, fillcolor=gray90" in pruned[0], f"a pruned file shaded:\n{dot}")


def check_dot_edges(qxqr, b):
    """The graph's edges: one from every file that needs a library, not only the first (a library that
    two others need has two, a cycle closes), each from the node of its file however the file was named."""
    lib = b.path("edges/lib")
    b.library("edges/lib/libshared.so.1")
    b.library("edges/lib/liba.so.1", ["edges/lib/libshared.so.1"], ["-Wl,--enable-new-dtags,-rpath,$ORIGIN"])
    b.library("edges/lib/libb.so.1", ["edges/lib/libshared.so.1"], ["-Wl,--enable-new-dtags,-rpath,$ORIGIN"])
    b.library("edges/lib/libq.so.1")
    b.library("edges/lib/libp.so.1", ["edges/lib/libq.so.1"], ["-Wl,--enable-new-dtags,-rpath,$ORIGIN"])
    b.library("edges/lib/libq.so.1", ["edges/lib/libp.so.1"], ["-Wl,--enable-new-dtags,-rpath,$ORIGIN"])
    program = b.program("edges/bin/app", ["edges/lib/liba.so.1", "edges/lib/libb.so.1", "edges/lib/libp.so.1"],
                        [f"-Wl,--enable-new-dtags,-rpath,{lib}"])
    os.makedirs(b.path("edges/other"))
    link = b.path("edges/other/app")
    os.symlink("../bin/app", link)
    run = run_deps(qxqr, ["--format", "dot", "--", program, link])
    lines = run.stdout.splitlines()
    edges = {tuple(line.strip().rstrip(";").split(" -> ")) for line in lines if " -> " in line}
    nodes = {line.strip().split(" [label=")[0] for line in lines if " [label=" in line}
    wanted = {(f'"{program}"', f'"{lib}/liba.so.1"'), (f'"{program}"', f'"{lib}/libb.so.1"'),
              (f'"{lib}/liba.so.1"', f'"{lib}/libshared.so.1"'), (f'"{lib}/libb.so.1"', f'"{lib}/libshared.so.1"'),
              (f'"{lib}/libp.so.1"', f'"{lib}/libq.so.1"'), (f'"{lib}/libq.so.1"', f'"{lib}/libp.so.1"')}
    check(run.returncode == 0 and wanted <= edges, f"every need is an edge, a cycle closes:\n{run.stdout}{run.stderr}")
    ends = {end for edge in edges for end in edge}
    check(ends <= nodes and f'"{link}"' not in nodes,
          f"every edge joins two nodes, the program given twice is one node:\n{run.stdout}")
    document = json.loads(run_deps(qxqr, ["--format", "json", "--", program]).stdout)
    callers = {item["file"]: item["callers"] for item in document["dependencies"]}
    wanted = {f"{lib}/libshared.so.1": [f"{lib}/liba.so.1", f"{lib}/libb.so.1"],
              f"{lib}/libp.so.1": [program, f"{lib}/libq.so.1"], program: []}
    check(all(callers.get(file) == expected for file, expected in wanted.items()),
          f"JSON callers, every need in the order met: {callers}")


def check_tokens(qxqr, b, compiler):
    """$LIB and $PLATFORM in a DT_RUNPATH, replaced by the platform's values in a real search."""
    multiarch = subprocess.run([compiler, "-print-multiarch"], stdout=subprocess.PIPE, text=True).stdout.strip()
    if not multiarch:
        print("the compiler names no multiarch directory: the $LIB fixture is left out")
        return
    b.library(f"tokens/lib/{multiarch}/libl.so.1")
    program = b.program("tokens/bin/lib-app", [f"tokens/lib/{multiarch}/libl.so.1"],
                        ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../$LIB"])
    check_closure(qxqr, b, "$LIB in a DT_RUNPATH", program, {f"tokens/lib/{multiarch}/libl.so.1"})
    # The loader may put the name of the CPU's level for $PLATFORM (see
    # docs/deps.md), so the machine's name is checked here without it.
    machine = os.uname().machine
    b.library(f"tokens/{machine}/libp.so.1")
    program = b.program("tokens/bin/platform-app", [f"tokens/{machine}/libp.so.1"],
                        ["-Wl,--enable-new-dtags,-rpath,$ORIGIN/../${PLATFORM}"])
    found = closure_of(qxqr, program, [], environment(None))
    check(os.path.realpath(b.path(f"tokens/{machine}/libp.so.1")) in found, f"$PLATFORM in a DT_RUNPATH: {sorted(found)}")


def check_configuration_under_sysroot(qxqr, b):
    """The directories of the loader's configuration (its include lines followed) come before the
    default directories; its files are read inside the root."""
    root = b.path("conf-root")
    b.library("conf-root/opt/app/lib/libk.so.1")
    b.library("conf-root/usr/lib/libk.so.1")
    program = b.program("conf-root/usr/bin/app", ["conf-root/usr/lib/libk.so.1"])
    os.makedirs(b.path("conf-root/etc/ld.so.conf.d"))
    with open(b.path("conf-root/etc/ld.so.conf"), "w") as configuration:
        configuration.write("include /etc/ld.so.conf.d/*.conf\n")
    with open(b.path("conf-root/etc/ld.so.conf.d/app.conf"), "w") as configuration:
        configuration.write("# the application's libraries\n/opt/app/lib\n")
    run = run_deps(qxqr, ["--sysroot", root, "--allow-missing", "--format", "paths", "--", program])
    check(f"{root}/opt/app/lib/libk.so.1\n" in run.stdout and f"{root}/usr/lib/libk.so.1" not in run.stdout,
          f"the configured directories come before the default ones:\n{run.stdout}")

    # A configuration file that is a link to an absolute name is read from
    # the root, never from this system: the file that the same name reaches
    # here names a directory of the root that would come first.
    b.library("conf-root/opt/host/lib/libk.so.1")
    with open(b.path("host.conf"), "w") as configuration:
        configuration.write("/opt/host/lib\n")
    os.symlink(b.path("host.conf"), b.path("conf-root/etc/ld.so.conf.d/0-linked.conf"))
    run = run_deps(qxqr, ["--sysroot", root, "--allow-missing", "--format", "paths", "--", program])
    check(f"{root}/opt/app/lib/libk.so.1\n" in run.stdout and f"{root}/opt/host/lib/libk.so.1" not in run.stdout,
          f"the loader's configuration is read inside the root:\n{run.stdout}")


def check_rule_options(qxqr, b):
    """--cwd, --set and --precompute set up the rules of deps as they set up those of walk."""
    lib = b.path("options/lib")
    b.library("options/lib/liba.so.1")
    b.library("options/lib/libb.so.1")
    program = b.program("options/bin/app", ["options/lib/liba.so.1", "options/lib/libb.so.1"],
                        [f"-Wl,--enable-new-dtags,-rpath,{lib}"])
    with open(b.path("options.rules"), "w") as rules:
        rules.write("exclude if $file == $cwd/liba.so.1\nexclude if $name == $dropped\n")

    def fates(*options):
        run = subprocess.run([qxqr, "deps", "--explain"] + list(options) + ["options.rules", "--", program],
                             cwd=b.root, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        return [line for line in run.stdout.splitlines() if line.startswith(lib) or line.startswith("    options")]

    check(fates() == [f"{lib}/liba.so.1: kept (needed by {program})", f"{lib}/libb.so.1: kept (needed by {program})"],
          f"without options: {fates()}")
    check(fates("--cwd", lib)[0:2] == [f"{lib}/liba.so.1: excluded (needed by {program})", "    options.rules, line 1:"],
          f"--cwd: {fates('--cwd', lib)}")
    set_fates = fates("--set", "dropped=libb.so")
    check(set_fates[1:3] == [f"{lib}/libb.so.1: excluded (needed by {program})", "    options.rules, line 2:"],
          f"--set: {set_fates}")
    # Precomputed, the exclude rules are one, named after the first.
    merged = fates("--set", "dropped=libb.so", "--precompute")
    check(merged[1:3] == [f"{lib}/libb.so.1: excluded (needed by {program})", "    options.rules, line 1:"],
          f"--precompute: {merged}")


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--qxqr", required=True)
    options.add_argument("--compiler", required=True)
    arguments = options.parse_args()
    qxqr = os.path.abspath(arguments.qxqr)
    with tempfile.TemporaryDirectory(prefix="qxqr-deps-") as root:
        builder = Builder(arguments.compiler, root)
        build_and_check_closures(qxqr, builder, arguments.compiler)
        check_forms(qxqr, builder)
        check_missing_include(qxqr, builder)
        check_problems(qxqr, builder)
        check_sysroot(qxqr, builder)
        check_start_files_apart(qxqr, builder)
        check_dot_nodes(qxqr, builder)
        check_dot_edges(qxqr, builder)
        check_tokens(qxqr, builder, arguments.compiler)
        check_configuration_under_sysroot(qxqr, builder)
        check_rule_options(qxqr, builder)
    for failure in FAILURES:
        print(failure, file=sys.stderr)
    print(f"{len(FAILURES)} failures")
    return 1 if FAILURES else 0


if __name__ == "__main__":
    sys.exit(main())
