#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# readme-host.sh BUILD: what README.md shows is true: the host compiles as printed against the library of the
# build tree BUILD, runs and prints what is said; the picture, folders and files named are there. Works in
# BUILD/tests/readme-host.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
tree=$(dirname "$here")
build=$(readlink -f "$1")
work=$build/tests/readme-host

rm -rf "$work"
mkdir -p "$work"/{host,tmp}
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_RUNTIME_DIR=$work/runtime
cd "$work/host"

# block LANGUAGE: the one block of code in this language.
block() {
    awk -v fence="\`\`\`$1" '$0 == fence { inside = 1; next } /^```$/ { inside = 0 } inside' "$tree/README.md"
}

same 'readme-host: one block of each kind' '1 1 1 1' \
    "$(grep -c '^```cpp$' "$tree/README.md") $(grep -c '^```cmake$' "$tree/README.md") \
$(grep -c '^```sh$' "$tree/README.md") $(grep -c '^```text$' "$tree/README.md")" || true
block cpp > main.cpp
block cmake > CMakeLists.txt
check 'readme-host: at most 30 lines' test "$(wc -l < main.cpp)" -le 30 || true
clang-format --style="file:$tree/.clang-format" < main.cpp > formatted.txt || true
check 'readme-host: formatted as the tree is' diff main.cpp formatted.txt || true

check 'readme-host: the library installs' quietly cmake --install "$build" --prefix "$work/prefix" || finish

# The commands as printed, one after the other; the compiler says all that it has to say.
export PREFIX=$work/prefix CXXFLAGS='-Wall -Wextra -Wpedantic'
commands=$(block sh)
check 'readme-host: the commands start with CMake and end with the host' \
    grep -qx 'QT_QPA_PLATFORM=offscreen build/first' <<< "$(tail -n 1 <<< "$commands")" || true
check 'readme-host: compiles as printed, without a warning' \
    quietly bash -euc "$(sed '$d' <<< "$commands")" || finish
code=0
printed=$(bash -euc "$(tail -n 1 <<< "$commands")" 2>&1) || code=$?
same 'readme-host: the host ends 0' 0 "$code" || true
same 'readme-host: prints what is said' "$(block text)" "$printed" || true

# shape FILE: WxH.
shape() {
    ffprobe -v error -show_entries stream=width,height -of csv=p=0:s=x "$1"
}
same 'readme-host: sizes of the pictures' '1280x720 640x360' "$(shape watermark.png) $(shape half.png)" || true

# drawn FILE: whether anything is drawn on the picture.
# shellcheck disable=SC2317 # called by check
drawn() {
    ffmpeg -v error -nostdin -y -i "$1" -vf format=rgba,alphaextract -frames:v 1 -f rawvideo alpha
    LC_ALL=C grep -qaP '[^\x00]' alpha
}
check 'readme-host: a text is drawn' drawn watermark.png || true
check 'readme-host: a text is drawn at half the size' drawn half.png || true

# What is named in the rest of the page.
picture=$(sed -nE 's/^!\[.*\]\((.*)\)$/\1/p' "$tree/README.md")
same 'readme-host: the picture is one of the tree' docs/pictures/preview.png "$picture" || true
same 'readme-host: the picture is as large as the sample clip' '1280x720' "$(shape "$tree/$picture")" || true
check 'readme-host: the picture has less than 150 KB' test "$(wc -c < "$tree/$picture")" -lt 150000 || true
# shellcheck disable=SC2016 # the backticks are Markdown's
links=$(sed '/^```cpp$/,/^```$/d' "$tree/README.md" | grep -oE '\]\([^)]+\)' | sed -E 's/^\]\((.*)\)$/\1/')
missing=
while read -r target; do
    [[ -e $tree/$target ]] || missing+="$target "
done <<< "$links"
same 'readme-host: no link leads nowhere' '' "$missing" || true
# shellcheck disable=SC2016 # the backticks are Markdown's
same 'readme-host: the map names every folder' \
    "$(cd "$tree" && find . -mindepth 1 -maxdepth 1 -type d ! -name '.*' ! -name build -printf '%P/\n' | LC_ALL=C sort)" \
    "$(sed -nE 's/^\| `([^`]+\/)` \|.*/\1/p' "$tree/README.md" | LC_ALL=C sort)" || true
for command in run test; do
    check "readme-host: ./$command can be started" test -x "$tree/$command" || true
done
finish
