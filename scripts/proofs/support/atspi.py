# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""The editor's window as AT-SPI tells of it."""

import time

import pyatspi

PATIENCE = 60


def everything(node):
    yield node
    for child in node:
        if child is not None:
            yield from everything(child)


def named(root, role, name):
    """The first thing below root of that role whose name begins with that; None when there is none."""
    for node in everything(root):
        if node.getRole() == role and node.name.startswith(name):
            return node
    return None


def wait(look):
    """What look() answers as soon as that is something, or at last."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except Exception:  # What was looked at has gone meanwhile; the bus has no better way to say so.
            found = None
        if found:
            return found
        time.sleep(0.1)
    return None


def window():
    """The editor's, which shows film.mkv; None when there is none."""
    for program in pyatspi.Registry.getDesktop(0):
        for node in program or []:
            if node is not None and node.name == "film.mkv - zoeditor":
                return node
    return None
