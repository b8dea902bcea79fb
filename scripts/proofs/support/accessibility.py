# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""accessibility.py ZOEDITOR CLIP: looks at a running editor by AT-SPI, as a screen reader does. A line a check."""

import subprocess
import sys

import pyatspi

from atspi import named, wait, window


def main():
    failed = 0
    passed = 0

    def check(what, holds):
        nonlocal failed, passed
        print("PASS" if holds else "FAIL", what, flush=True)
        passed += bool(holds)
        failed += not holds

    editor = subprocess.Popen(sys.argv[1:])
    try:
        shown = wait(window)
        check("the window is called after the file", shown)
        if shown:
            look(shown, check)
    finally:
        editor.kill()
        editor.wait()
    print(f"found: {passed} checks of the editor's tree by AT-SPI")
    print(f"{passed} passed, {failed} failed")
    return failed > 0


def look(shown, check):
    panes = {
        "Files": pyatspi.ROLE_LIST,
        "Effects": pyatspi.ROLE_TREE,
        "Values": pyatspi.ROLE_FILLER,
        "Time": pyatspi.ROLE_SLIDER,
        "Picture": pyatspi.ROLE_CANVAS,
    }
    for name, role in panes.items():
        check(f'there is a {role} "{name}"', wait(lambda n=name, r=role: named(shown, r, n)))
    left = wait(lambda: named(shown, pyatspi.ROLE_SPIN_BUTTON, "Left"))
    check("the crop's left edge is a field", left)
    if not left:
        return
    value = left.queryValue()
    check("its value is read", value.currentValue == 0)
    value.currentValue = 10
    check("its value is set", wait(lambda: left.queryValue().currentValue == 10))
    edge = wait(lambda: named(shown, pyatspi.ROLE_GRIP if hasattr(pyatspi, "ROLE_GRIP") else pyatspi.ROLE_UNKNOWN,
                              "Crop: left edge"))
    check("the picture has the edge as its child", edge)
    undo = wait(lambda: named(shown, pyatspi.ROLE_PUSH_BUTTON, "Undo"))
    check("there is a button for undo", undo)
    if undo:
        undo.queryAction().doAction(0)
        check("undo takes the value back", wait(lambda: left.queryValue().currentValue == 0))


sys.exit(main())
