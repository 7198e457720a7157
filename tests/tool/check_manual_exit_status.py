#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the manual page's exit statuses tell when qxqr deps and lint fail.

The [EXIT STATUS] section of the manual's source lists each status with
what leads to it; status 1 must name deps and the option that lets a
library that is not found pass, and lint's --werror.
"""

import re
import sys


def status_entries(text):
    """The [EXIT STATUS] section, as {status: its text with the roff requests taken out}."""
    section = text.split("[EXIT STATUS]", 1)[1].split("\n[", 1)[0]
    entries = {}
    for part in section.split(".TP\n")[1:]:
        status, _, rest = part.partition("\n")
        words = [re.sub(r"^\.B[R]? ", "", line).replace("\\-", "-") for line in rest.splitlines()]
        entries[status.replace(".B ", "").strip()] = " ".join(words)
    return entries


def main():
    with open(sys.argv[1], encoding="utf-8") as source:
        entries = status_entries(source.read())
    failure = entries.get("1", "")
    missing = [word for word in ("deps", "not found", "--allow-missing", "lint --werror") if word not in failure]
    if missing:
        print(f"exit status 1 of the manual does not say {missing}: {failure!r}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
