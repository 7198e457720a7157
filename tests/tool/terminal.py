# SPDX-License-Identifier: MIT
"""Reading what a program shows on a pseudo-terminal."""

import os


def read_until_closed(controller):
    """All that the terminal whose controlling side is `controller` shows, up to the moment it closes."""
    shown = b""
    while True:
        try:
            chunk = os.read(controller, 65536)
        except OSError:  # the terminal closes when the program ends
            break
        if not chunk:
            break
        shown += chunk
    return shown
