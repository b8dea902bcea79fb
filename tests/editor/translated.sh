#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# translated.sh: each text of the kit and of the programs has its German, and each plural of the editor its English.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
tree=$here/../..
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)

for name in kit/zokit_de apps/zoconvert/zoconvert_de apps/zoeditor/zoeditor_de apps/zoeditor/zoeditor_en; do
    folder=$(dirname "$name")
    text=$work/$(basename "$name").ts
    cp "$tree/$folder/translations/$(basename "$text")" "$text"
    options=(-silent -locations none -no-obsolete -tr-function-alias 'QT_TR_NOOP+=T') # T marks the texts of tables.
    [[ $name == *_en ]] && options+=(-pluralonly)
    said=$("$lupdate" "${options[@]}" "$tree/$folder" -ts "$text" 2>&1) || fail "translated: $name" "$said"
    same "translated: nothing is left to translate ($name)" '' \
        "$(grep -B 3 'type="unfinished"' "$text" | grep source || true)" || true
done
same 'translated: German of the editor holds texts' 1 \
    "$(grep -c '<translation>Beenden\|<translation>&amp;Beenden' "$work/zoeditor_de.ts" || true)" || true
same 'translated: German of the kit holds texts of tables' 1 \
    "$(grep -c '<source>Sound languages</source>' "$work/zokit_de.ts" || true)" || true
finish
