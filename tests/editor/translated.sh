#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# translated.sh: each text of the editor has its German, and each plural its English.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
tree=$here/../..
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)

for language in de en; do
    text=$work/$language.ts
    cp "$tree/apps/zoeditor/translations/zoeditor_$language.ts" "$text"
    options=(-silent -locations none -no-obsolete)
    [[ $language == en ]] && options+=(-pluralonly)
    "$lupdate" "${options[@]}" "$tree/apps/zoeditor" -ts "$text"
    same "translated: nothing is left to translate ($language)" '' \
        "$(grep -B 3 'type="unfinished"' "$text" | grep source || true)" || true
done
same 'translated: German holds texts' 1 "$(grep -c '<translation>Beenden\|<translation>&amp;Beenden' "$work/de.ts" || true)" || true
finish
