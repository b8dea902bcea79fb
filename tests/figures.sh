#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# figures.sh BUILD: the pictures of the guide are what zofigures of the build tree BUILD draws, within two levels a
# channel, since processors round apart; a picture that lacks or is left over is told. Pictures of
# programs are not among them: ./run makes preview.png, and what tests/ has for it those of the windows. The pictures in
# the tree are drawn with Qt 5, so BUILD is one with Qt 5. Works in BUILD/tests/figures.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
shown=$(dirname "$here")/docs/pictures
build=$(readlink -f "$1")
program=$build/docs/figures/zofigures
work=$build/tests/figures

rm -rf "$work"
mkdir -p "$work"/{tmp,config}
mkdir -m 700 "$work/runtime"
export HOME=$work TMPDIR=$work/tmp XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY
cd "$work"

# zofigures ARGUMENT...: runs the program; leaves its exit code in code, what it printed in out and err.
zofigures() {
    code=0
    "$program" "$@" > out.txt 2> err.txt < /dev/null || code=$?
    out=$(< out.txt)
    err=$(< err.txt)
}

# names FOLDER: the files in it, but for those of the programs.
names() {
    find "$1" -mindepth 1 ! -name preview.png ! -name 'editor*.png' ! -name gallery.png ! -name newcomer.png \
        -printf '%P\n' | LC_ALL=C sort
}

# size FILE: width and height of a picture.
size() {
    ffprobe -v error -show_entries stream=width,height -of csv=p=0 "$1"
}

# channels FILE: the pixels, a byte a channel. The pictures have no transparency.
channels() {
    ffmpeg -v error -nostdin -i "$1" -f rawvideo -pix_fmt rgb24 -
}

# farthest FILE FILE: by how many levels the channels of two pictures of one size differ at most.
farthest() {
    { cmp -l <(channels "$1") <(channels "$2") || true; } | awk '
        function level(octal) { return int(octal / 100) * 64 + int(octal / 10) % 10 * 8 + octal % 10 }
        { apart = level($2) - level($3); if (apart < 0) apart = -apart; if (apart > most) most = apart }
        END { print most + 0 }'
}

zofigures 'the pictures'
same 'figures: drawing ends 0' 0 "$code" || true
same 'figures: drawing says nothing' '' "$out$err" || true
same 'figures: exactly the pictures of the guide are drawn' "$(names "$shown")" "$(names 'the pictures')" || true
for picture in 'the pictures'/*.png; do
    name=$(basename "$picture")
    [[ -f $shown/$name ]] || continue # Told above.
    same "figures: $name has its size" "$(size "$shown/$name")" "$(size "$picture")" || true
    apart=$(farthest "$shown/$name" "$picture")
    check "figures: $name is up to date: $apart levels apart, at most 2" test "$apart" -le 2 || true
done
same 'figures: no file is left elsewhere' '' "$(find tmp config -mindepth 1 -type f)" || true

# A picture that cannot be written ends the program with one sentence.
: > file
zofigures file/folder
same 'figures: a folder inside a file: ends 1' 1 "$code" || true
same 'figures: a folder inside a file: says so' 'zofigures: file/folder: this folder cannot be made' "$out$err" || true
mkdir -p taken/first-host.png
zofigures taken
same 'figures: a folder in place of a picture: ends 1' 1 "$code" || true
check 'figures: a folder in place of a picture: says so' \
    grep -qxE 'zofigures: taken/first-host\.png: this picture cannot be written: .+' err.txt || true
same 'figures: a folder in place of a picture: in one sentence' 1 "$(wc -l < err.txt)" || true
TMPDIR=$work/file zofigures elsewhere
same 'figures: no temporary folder: ends 1' 1 "$code" || true
check 'figures: no temporary folder: says so' \
    grep -qxE 'zofigures: .*a picture that is shown as a watermark cannot be written' err.txt || true
for arguments in '' 'one two'; do
    # shellcheck disable=SC2086 # none, or two
    zofigures $arguments
    same "figures: arguments '$arguments': ends 2" 2 "$code" || true
    same "figures: arguments '$arguments': shows the usage" 'usage: zofigures FOLDER' "$(head -n 1 err.txt)" || true
done
zofigures --help
same 'figures: --help ends 0' 0 "$code" || true
same 'figures: --help shows the usage' 'usage: zofigures FOLDER' "$(head -n 1 out.txt)" || true
finish
