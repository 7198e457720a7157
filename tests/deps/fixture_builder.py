# SPDX-License-Identifier: MIT
"""Small programs and libraries made with the compiler, for the tests of `qxqr deps`."""

import os
import re
import subprocess


class Builder:
    """Makes libraries and programs, each with a function the next one calls, so that every
    library named is needed whatever the linker's defaults."""

    def __init__(self, compiler, root):
        self.compiler = compiler
        self.root = root

    def path(self, relative):
        return os.path.join(self.root, relative)

    def compile(self, output, source, flags):
        os.makedirs(os.path.dirname(self.path(output)), exist_ok=True)
        source_file = self.path(output) + ".c"
        with open(source_file, "w") as file:
            file.write(source)
        # The C++ driver adds its own libraries (libstdc++, libm) at the end;
        # --as-needed drops them from what needs none of their functions,
        # whatever the compiler's default, so that the fixtures need only
        # what they name.
        subprocess.run([self.compiler, "-Wl,--as-needed", "-x", "c", source_file, "-x", "none",
                        "-o", self.path(output)] + flags,
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.remove(source_file)
        return self.path(output)

    @staticmethod
    def function_of(library):
        """The function that the library at `library` defines: f_ and its name up to the first dot."""
        return "f_" + re.sub(r"\W", "_", os.path.basename(library).split(".")[0])

    @classmethod
    def source(cls, defines, needs):
        functions = [cls.function_of(need) for need in needs]
        declarations = "".join(f"int {function}(void);\n" for function in functions)
        calls = " + ".join([f"{function}()" for function in functions] or ["0"])
        return declarations + f"int {defines}(void) {{ return {calls}; }}\n"

    def library(self, relative, needs=(), flags=(), soname=None):
        """A library lib<x>.so.1 at `relative`; `needs` are the paths (relative) of the libraries it links."""
        soname = soname or os.path.basename(relative)
        links = [self.path(need) for need in needs]
        rpath_link = [f"-Wl,-rpath-link,{os.path.dirname(link)}" for link in links]
        return self.compile(relative, self.source(self.function_of(relative), needs),
                            ["-shared", "-fPIC", f"-Wl,-soname,{soname}"] + links + rpath_link + list(flags))

    def program(self, relative, needs=(), flags=()):
        links = [self.path(need) for need in needs]
        rpath_link = [f"-Wl,-rpath-link,{os.path.dirname(link)}" for link in links]
        return self.compile(relative, self.source("main", needs), links + rpath_link + list(flags))
