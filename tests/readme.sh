#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# readme.sh: the picture, folders, files and commands that README.md names are there.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
cd "$here/.."

picture=$(sed -nE 's/^!\[.*\]\((.*)\)$/\1/p' README.md)
same 'readme: the picture is one of the tree' docs/pictures/preview.png "$picture" || true
same 'readme: the picture is as large as the sample clip' '1280x720' \
    "$(ffprobe -v error -show_entries stream=width,height -of csv=p=0:s=x "$picture")" || true
check 'readme: the picture has less than 150 KB' test "$(wc -c < "$picture")" -lt 150000 || true
missing=
while read -r target; do
    [[ -e $target ]] || missing+="$target "
done <<< "$(grep -oE '\]\([^)]+\)' README.md | sed -E 's/^\]\((.*)\)$/\1/')"
same 'readme: no link leads nowhere' '' "$missing" || true
# shellcheck disable=SC2016 # the backticks are Markdown's
same 'readme: the map names every folder' \
    "$(find . -mindepth 1 -maxdepth 1 -type d ! -name '.*' ! -name build -printf '%P/\n' | LC_ALL=C sort)" \
    "$(sed -nE 's/^\| `([^`]+\/)` \|.*/\1/p' README.md | LC_ALL=C sort)" || true
while read -r command; do
    check "readme: $command can be started" test -x "$command" || true
done <<< "$(sed -nE 's#^    ((\./|scripts/)[a-z]+).*#\1#p' README.md | LC_ALL=C sort -u)"
finish
