#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# options.sh: the tree holds no dead option. Whatever can be chosen (in CMake, in a preset, to a compiler, on a command
# line, a group of packages) is read somewhere, and somebody chooses it.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
cd "$here/.."

# files FIND-TESTS...: the files of the tree, without what was built, one a line.
files() {
    find . \( -path ./build -o -path ./.git \) -prune -o -type f \( "$@" \) -print | LC_ALL=C sort
}
mapfile -t cmake <<< "$(files -name CMakeLists.txt -o -name '*.cmake' -o -name '*.cmake.in' -o -name '*.pc.in')"
mapfile -t sources <<< "$(files -name '*.h' -o -name '*.cpp')"
mapfile -t scripts <<< "$({ files -name '*.sh'; find ./run ./test .ci/run scripts -maxdepth 1 -type f; } | LC_ALL=C sort)"
mapfile -t pages <<< "$(files -name '*.md')"

# without COMMAND NAMES: those of the names, one a line, for which the command ends non-zero.
without() {
    local name
    while read -r name; do
        [[ -z $name ]] || "$1" "$name" || echo "$name"
    done <<< "$2"
}

# --- CMake -------------------------------------------------------------------------------------------------------

declared=$(sed -nE 's/^ *option\((ZOEFFECT_[A-Z0-9_]+) .*/\1/p; s/^ *set\((ZOEFFECT_[A-Z0-9_]+) .* CACHE .*/\1/p' \
    "${cmake[@]}" | LC_ALL=C sort -u)
# All that CMake is told, without the names that it is told to set.
reading=$(sed -E 's/\b(option|set|set_property|find_program)\((CACHE )?ZOEFFECT_[A-Z0-9_]+//' "${cmake[@]}")
# shellcheck disable=SC2317 # called by without
read_by_cmake() {
    grep -qE "\b$1\b" <<< "$reading"
}
# shellcheck disable=SC2317 # called by without
chosen() {
    grep -qE "(\"|-D ?\"?)$1\b" CMakePresets.json "${scripts[@]}" "${pages[@]}"
}
check 'options: there are some' test -n "$declared" || true
same 'options: CMake reads each' '' "$(without read_by_cmake "$declared")" || true
same 'options: a preset, a script or a page sets each' '' "$(without chosen "$declared")" || true
set_somewhere=$({
    grep -hoE -- '-D ?"?ZOEFFECT_[A-Z0-9_]+=' "${scripts[@]}"
    grep -oE '"ZOEFFECT_[A-Z0-9_]+"' CMakePresets.json
} | grep -oE 'ZOEFFECT_[A-Z0-9_]+' | LC_ALL=C sort -u)
same 'options: what presets and scripts set is read' '' "$(without read_by_cmake "$set_somewhere")" || true

variables=$(sed -nE 's/^ *(set|find_program)\((ZOEFFECT_[A-Z0-9_]+)\b.*/\2/p' "${cmake[@]}" | LC_ALL=C sort -u)
same 'options: each variable of CMake is used' '' "$(without read_by_cmake "$variables")" || true

# --- Definitions for the compiler ----------------------------------------------------------------------------------

# shellcheck disable=SC2317 # called by without
read_by_sources() {
    grep -qE "\b$1\b" "${sources[@]}"
}
definitions=$(awk '/target_compile_definitions\(/ { inside = 1 } inside { print } /\)$/ { inside = 0 }' "${cmake[@]}" |
    grep -oE '\b(ZOEFFECT_[A-Z_]+[=>]|HAS_[A-Z_]+\b)' | tr -d '=>' | LC_ALL=C sort -u)
check 'options: there are definitions' test -n "$definitions" || true
same 'options: a source reads each definition' '' "$(without read_by_sources "$definitions")" || true

# --- Presets ---------------------------------------------------------------------------------------------------------

presets=$(sed -n '/"configurePresets"/,/"buildPresets"/p' CMakePresets.json |
    sed -nE 's/^ +"name": "(.*)",$/\1/p' | grep -vx base)
same 'options: the presets' 'dev
dev-qt6
asan
release
bench
package' "$presets" || true
# shellcheck disable=SC2317 # called by without
built_by_script() {
    grep -qE "preset[s=( ]+([a-z0-9 -]* )?\"?$1\b" "${scripts[@]}"
}
same 'options: a script builds each preset' '' "$(without built_by_script "$presets")" || true

# --- Command lines -------------------------------------------------------------------------------------------------

for script in "${scripts[@]}"; do
    grep -q '^usage() {' "$script" || continue
    told=$(sed -n '/^usage() {/,/^TEXT$/p' "$script")
    handled=$(sed '/^usage() {/,/^TEXT$/d' "$script" |
        sed -nE 's/^ *(-[-a-z0-9=*| ]+)\) .*/\1/p; s/^ *(-[-a-z0-9=*| ]+)\)$/\1/p' | tr '|' '\n' | tr -d ' ' |
        grep -oE '^--[a-z0-9-]+$' | LC_ALL=C sort -u | grep -vx -e --help || true)
    untold=
    for option in $handled; do
        [[ $script != ./run ]] || continue # Hands its options on.
        grep -qE -- "$option\b" <<< "$told" || untold+="$option "
    done
    offered=$(grep -E '^(usage:|      )' <<< "$told" | grep -oE -- '\[--[a-z0-9-]+|\| --[a-z0-9-]+' |
        grep -oE -- '--[a-z0-9-]+' | LC_ALL=C sort -u || true)
    dead=
    for option in $offered; do
        grep -qx -- "$option" <<< "$handled" || dead+="$option "
    done
    same "options: ${script#./} tells and handles the same" '' "$untold$dead" || true
done
zopreview=$(sed -nE 's/.*\{\{?"([a-z-]+)".*/\1/p' host/request.cpp | LC_ALL=C sort -u)
check 'options: zopreview has some' test -n "$zopreview" || true
# shellcheck disable=SC2317 # called by without
tried() {
    grep -qE -- "--$1\b" tests/host-cli.sh
}
same 'options: the tests try each of zopreview' '' "$(without tried "$zopreview")" || true

# --- Groups of packages ------------------------------------------------------------------------------------------

groups=$(sed -nE "s/^    \[([a-z0-9]+)\]='.*/\1/p" scripts/install-packages)
check 'options: there are groups of packages' test -n "$groups" || true
# shellcheck disable=SC2317 # called by without
installed() {
    grep -qE "(install-packages|groups\+?=).*[ (]$1\b" "${scripts[@]}"
}
same 'options: a script installs each group' '' "$(without installed "$groups")" || true
finish
