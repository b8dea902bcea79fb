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

folder=$(mktemp -d)
display_pid=
finish() {
    [[ -z $display_pid ]] || kill "$display_pid" 2> /dev/null || true
    rm -rf "$folder"
}
trap finish EXIT
mkdir -m 700 "$folder"/{home,runtime,tmp}
quietly ffmpeg -v error -f lavfi -i testsrc2=s=160x120:r=25:d=1 -c:v mpeg4 "$folder/film.mkv"

mkfifo "$folder/display"
# It must outlive its clients: the first is gone before the editor comes.
Xvfb -displayfd 7 -noreset -screen 0 1600x1000x24 -nolisten tcp 7> "$folder/display" 2> "$folder/xvfb.log" &
display_pid=$!
read -r number < "$folder/display"

# Nothing of the user's is read, written or talked to.
export DISPLAY=:$number HOME=$folder/home XDG_RUNTIME_DIR=$folder/runtime TMPDIR=$folder/tmp LC_ALL=C.UTF-8
unset XDG_CONFIG_HOME XDG_STATE_HOME XDG_DATA_HOME XDG_CACHE_HOME WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
dbus-run-session -- /usr/bin/python3 scripts/proofs/support/accessibility.py build/dev/apps/zoeditor/zoeditor "$folder/film.mkv"
