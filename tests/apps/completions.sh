#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# completions.sh BUILD: what bash offers for zoconvert of the build tree BUILD. Works in BUILD/tests/completions.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
build=$(readlink -f "$1")
work=$build/tests/completions
rm -rf "$work"
mkdir -p "$work"/{config,films}
cd "$work"
touch films/a.mkv films/b.mkv
export XDG_CONFIG_HOME=$work/config LC_ALL=C.UTF-8 PATH=$build/apps/zoconvert:$PATH
printf '{"zoeffect": 1, "media": {"width": 640, "height": 360}}' > plain.zoeffect.json
zoconvert preset save 'my logo' plain.zoeffect.json
zoconvert _completions bash > completion
# shellcheck source=/dev/null
source ./completion
# Only known while something is completed.
# shellcheck disable=SC2317 # The completion calls it.
compopt() { :; }

# offers NAME EXPECTED WORD...: what is offered for the last word, in the pieces that bash makes of it.
offers() {
    local name=$1 expected=$2
    shift 2
    COMP_WORDS=(zoconvert "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _zoconvert || true
    local offered
    offered=$(printf '%s\n' "${COMPREPLY[@]-}" | LC_ALL=C sort | paste -sd ' ')
    same "completions: $name" "$expected" "$offered" || true
}

offers 'commands' 'schema settings show' s
offers 'no other' '' x
offers 'options' '--all' show --a
offers 'help' '--help' show --he
offers 'actions' 'remove rename' preset re
offers 'choices' 'skip' settings --existing s
offers 'choices behind an equals sign' 'replace' settings --existing = rep
offers 'types' 'Color' apply a b --items Col
offers 'the values of a type' 'bcs_brightness= bcs_contrast= bcs_saturation= selected=' settings --set Color :
offers 'the key of an address' 'bcs_brightness=' settings --set Color : bcs_b
offers 'of an item' 'wm_fontsize= wm_fontstyle=' settings --set Watermark : 0 : wm_fonts
offers 'corners' 'bottom bottom-left bottom-right' settings --place bo
offers 'presets' 'my\ logo' preset show my
offers 'files' 'films/a.mkv films/b.mkv' settings films/
finish
