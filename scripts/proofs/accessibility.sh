#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Reads and edits in the editor as a screen reader does. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove accessibility

Starts zoeditor on a display and a bus of its own, and looks at it from outside by AT-SPI, as a screen reader does: the
panes are there under their names, a value can be read and set, an action be done, the picture has its handles. The last
line is "N passed, N failed"; ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 0 "$@"

scripts/install-packages build run test xvfb dbus at-spi2-core python3-pyatspi || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev zoeditor

# shellcheck source-path=SCRIPTDIR source=support/display.sh
source scripts/proofs/support/display.sh
quietly ffmpeg -v error -f lavfi -i testsrc2=s=160x120:r=25:d=1 -c:v mpeg4 "$folder/film.mkv"

dbus-run-session -- /usr/bin/python3 scripts/proofs/support/accessibility.py build/dev/apps/zoeditor/zoeditor "$folder/film.mkv"
