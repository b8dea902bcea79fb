#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# pages.sh BUILD: Doxygen makes the guide and the reference without a warning, each public header and each chapter has
# its page, and a declaration without a comment would be noticed. Works in BUILD/tests/pages.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
tree=$(dirname "$here")
work=$(readlink -f "$1")/tests/pages
html=$work/html

rm -rf "$work"
check 'pages: Doxygen makes them without a warning' "$tree/scripts/docs" "$work" || finish

missing=
for chapter in "$tree"/docs/guide/*.md; do
    title=$(sed -n 's/^# //p' "$chapter" | head -n 1)
    grep -qF "<title>libzoeffect: $title</title>" "$html"/*.html || missing+="$title"$'\n'
done
same 'pages: each chapter has one' '' "$missing" || true
missing=
for name in ZoEffectModel ZoEffectItemData ZoEffectItemDefaultValMgr ZoPref ZoPrefProvider \
    zokit_1_1{FileSettings,History,Journal,LivePreview,Message,Presets,Project,ProjectFiles,SettingsModel,ShownFrames,WatermarkPictures,Workbench}; do
    [[ -e $html/class$name.html ]] || missing+="$name "
done
for name in zokitquick_1_1{FileSettings,PreviewPicture,SettingsModel}; do
    [[ -e $html/class$name.html ]] || missing+="$name "
done
for name in CropData EffectDefaultVal SubEffectItem EffectControlItem zokit_1_1{Address,Anchor,Property,Settings}; do
    [[ -e $html/struct$name.html ]] || missing+="$name "
done
same 'pages: each public class has one' '' "$missing" || true
check 'pages: the functions of the kit have one' grep -q 'carriedOver' "$html/namespacezokit.html" || true
check 'pages: so has that of the kit for QML' grep -q 'registerTypes' "$html/namespacezokitquick.html" || true
missing=
for picture in "$tree"/docs/pictures/*.png; do
    [[ -e $html/$(basename "$picture") ]] || missing+="$(basename "$picture") "
done
same 'pages: each picture is shown' '' "$missing" || true

missing=
cd "$html"
for page in *.html; do
    while read -r target; do
        [[ -z $target || $target == *:* || -e $target ]] || missing+="$page: $target"$'\n'
    done <<< "$(grep -ohE '(href|src)="[^"#]+' "$page" | sed -E 's/^(href|src)="//' | LC_ALL=C sort -u)"
done
same 'pages: no link leads nowhere' '' "$missing" || true
same 'pages: each link is one' '' "$(grep -l '@ref' ./*.html || true)" || true

# The same headers, one declaration of which lost its comment.
mkdir "$work/copy"
tar --create --directory="$tree" --exclude=./build --exclude=./.git --exclude=./tests . |
    tar --extract --directory="$work/copy"
sed -i '/\/\/\/ The base size; 0 x 0 until it is set\./d' "$work/copy/model/zoeffectmodel.h"
check 'pages: the copy has a declaration without a comment' \
    test -n "$(cmp "$tree/model/zoeffectmodel.h" "$work/copy/model/zoeffectmodel.h" || true)" || true
code=0
said=$("$work/copy/scripts/docs" "$work/without" 2>&1) || code=$?
same 'pages: then Doxygen ends 1' 1 "$code" || true
check 'pages: and names the declaration' grep -q 'Member baseSize() const .* is not documented' <<< "$said" || true
finish
