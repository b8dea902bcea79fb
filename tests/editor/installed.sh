#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# installed.sh BUILD INSIDE: installs from the build tree BUILD into a folder, and starts the editor that is there, in
# English and in German as the environment says: it speaks that, and in its smallest window no text is cut off. INSIDE is
# the library that looks at it. Works in BUILD/tests/installed.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
build=$(readlink -f "$1")
inside=$(readlink -f "$2")
work=$build/tests/installed
prefix="$work/installed package"

rm -rf "$work"
mkdir -p "$work/tmp" "$work/home"
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp HOME=$work/home XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=offscreen
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME LANGUAGE LC_ALL LC_MESSAGES QT_SCALE_FACTOR
check 'installed: the package installs' quietly cmake --install "$build" --prefix "$prefix" || finish
ffmpeg -v error -f lavfi -i testsrc=size=160x120:duration=1 -f lavfi -i sine=duration=1 -shortest "$work/clip.mkv"

# speaks NAME LANG EXPECTED: the editor in that language says EXPECTED, and nothing of it is cut off.
speaks() {
    local said
    if ! said=$(LANG=$2 LD_PRELOAD=$inside timeout 120 "$prefix/bin/zoeditor" -style fusion "$work/clip.mkv" \
        2> "$work/errors"); then
        fail "installed: $1: the editor ended badly" "$said$(< "$work/errors")"
        return
    fi
    same "installed: $1: what it says" "$3" "$(grep -v '^cut off' <<< "$said")" || true
    same "installed: $1: nothing is cut off" '' "$(grep '^cut off' <<< "$said" || true)" || true
}
speaks English en_GB.UTF-8 'size: 1024x640
menus: File, Edit, View, Time, Help
things: Crop, Watermarks, Subtitles, Sound tracks, Colour, Frame effects, Fade in and out, Normalize, Band pass, Chorus, Flanger, Echo, Speed, Choice of tracks, Output
dialogs: Shortcuts, Apply to other files, Presets and defaults, Tracks, Convert'
speaks German de_DE.UTF-8 'size: 1024x640
menus: Datei, Bearbeiten, Ansicht, Zeit, Hilfe
things: Zuschnitt, Wasserzeichen, Untertitel, Tonspuren, Farbe, Bildeffekte, Ein-/Ausblenden, Normalisieren, Bandpass, Chorus, Flanger, Echo, Tempo, Wahl der Spuren, Ausgabe
dialogs: Tastenkürzel, Auf andere Dateien anwenden, Vorlagen und Vorgaben, Spuren, Umwandeln'

# There is no such display.
export QT_QPA_PLATFORM=none
same 'installed: its version' "zoeditor $(sed -n 's/^Version: //p' "$build"/zoeffect*.pc)" \
    "$("$prefix/bin/zoeditor" --version 2> /dev/null)" || true
check 'installed: its help' grep -q 'Films, folders of films' <("$prefix/bin/zoeditor" --help 2> /dev/null)
status=0
"$prefix/bin/zoeditor" --speed 2> "$work/errors" || status=$?
same 'installed: an option that is none' 2 "$status" || true
status=0
"$prefix/bin/zoeditor" --help > /dev/full 2> "$work/errors" || status=$?
same 'installed: its help that cannot be written' \
    '1 zoeditor: What was asked for cannot be written to standard output.' "$status $(< "$work/errors")" || true
finish
