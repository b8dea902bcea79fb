# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Sourced by proofs that look at the editor from outside: a display of its own, and a home, in $folder. What is started
# besides goes to children, and ends with the proof. Takes Xvfb.

folder=$(mktemp -d)
children=()
finish() {
    ((${#children[@]} == 0)) || kill "${children[@]}" 2> /dev/null || true
    rm -rf "$folder"
}
trap finish EXIT
mkdir -m 700 "$folder"/{home,runtime,tmp}

mkfifo "$folder/display"
# It must outlive its clients: the first is gone before the editor comes.
Xvfb -displayfd 7 -noreset -screen 0 1600x1000x24 -nolisten tcp 7> "$folder/display" 2> "$folder/xvfb.log" &
children+=($!)
read -r number < "$folder/display"

# Nothing of the user's is read, written or talked to.
export DISPLAY=:$number HOME=$folder/home XDG_RUNTIME_DIR=$folder/runtime TMPDIR=$folder/tmp LC_ALL=C.UTF-8
unset XDG_CONFIG_HOME XDG_STATE_HOME XDG_DATA_HOME XDG_CACHE_HOME WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
