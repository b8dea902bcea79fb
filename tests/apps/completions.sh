#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# completions.sh BUILD: what bash and zsh offer for zoconvert of the build tree BUILD. Works in BUILD/tests/completions.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
build=$(readlink -f "$1")
work=$build/tests/completions
rm -rf "$work"
mkdir -p "$work"/{config,films,zsh}
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
    same "completions: bash: $name" "$expected" "$offered" || true
}

offers 'commands' 'schema settings show' s
offers 'no other' '' x
offers 'the word that explains' 'help' he
offers 'what it explains' 'schema settings show' help s
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

zoconvert _completions zsh > zsh/_zoconvert
check 'completions: zsh: its form' zsh -n zsh/_zoconvert || true

# A shell with a terminal that types each of the lines, and writes down what its completion system adds for it.
cat > zsh/.zshrc <<'ZSH'
fpath=($PWD/zsh $fpath)
autoload -Uz compinit && compinit -u -D
compadd() {
    local -a matches
    local until_words=${@[(i)(-|--)]}
    # With one of these it fills an array, and adds nothing.
    if [[ -z ${(M)@[1,until_words]:#-[AOD]*} ]]; then
        builtin compadd -A matches "$@"
        offered+=($matches)
    fi
    builtin compadd "$@"
}
keep_still() { compstate[insert]= compstate[list]= comppostfuncs=(keep_still) }
zle-line-init() {
    local line
    local -a offered
    while IFS= read -r line; do
        offered=() comppostfuncs=(keep_still)
        BUFFER="zoconvert $line" CURSOR=$#BUFFER
        zle complete-word
        print -r -- ${(o)offered} >> zsh/offered
    done < zsh/lines
    BUFFER=exit
    zle accept-line
}
zle -N zle-line-init
ZSH

zsh_names=()
zsh_expected=()
# zsh_offers NAME EXPECTED LINE: what is offered at the end of the line, once all of them are typed.
zsh_offers() {
    zsh_names+=("$1")
    zsh_expected+=("$2")
    printf '%s\n' "$3" >> zsh/lines
}

zsh_offers 'commands' 'schema settings show' 's'
zsh_offers 'no other' '' 'x'
zsh_offers 'the word that explains' 'help' 'he'
zsh_offers 'what it explains' 'schema settings show' 'help s'
zsh_offers 'options' '--all' 'show --a'
zsh_offers 'options with values' '--audio --audio-bitrate --audio-codec --audio-language --audio-tracks' 'convert --au'
zsh_offers 'help' '--help' 'show --he'
zsh_offers 'actions' 'remove rename' 'preset re'
zsh_offers 'choices' 'skip' 'settings --existing s'
zsh_offers 'choices behind an equals sign' 'replace' 'settings --existing=rep'
zsh_offers 'types' 'Color' 'apply a b --items Col'
zsh_offers 'the key of an address' 'Color:bcs_brightness=' 'settings --set Color:bcs_b'
zsh_offers 'of an item, behind an equals sign' 'Watermark:0:wm_fontsize= Watermark:0:wm_fontstyle=' \
    'settings --set=Watermark:0:wm_fonts'
zsh_offers 'corners' 'bottom bottom-left bottom-right' 'settings --place bo'
zsh_offers 'presets' 'my\ logo' 'preset show my'
zsh_offers 'files' 'a.mkv b.mkv' 'settings films/'

if [[ ! -e /dev/pts/ptmx ]]; then
    echo 'completions: zsh needs a pseudo-terminal: mount devpts to /dev/pts'
    finish
fi
ZDOTDIR=$work/zsh TERM=dumb zsh -fc 'zmodload zsh/zpty; zpty shell zsh -i; while zpty -r shell; do :; done' \
    > zsh/typed < /dev/null 2>&1 || true
mapfile -t zsh_offered < zsh/offered
for ((row = 0; row < ${#zsh_names[@]}; row++)); do
    same "completions: zsh: ${zsh_names[row]}" "${zsh_expected[row]}" "${zsh_offered[row]-nothing was typed}" || true
done
finish
