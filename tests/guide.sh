#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# guide.sh BUILD: what the guide shows is true. Each chapter docs/guide/NN-NAME.md has its program, example-NAME of
# the build tree BUILD: the chapter's C++ stands in it, and it prints the chapter's blocks of text, no more and no less.
# Works in BUILD/tests/guide.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
tree=$(dirname "$here")
build=$(readlink -f "$1")
work=$build/tests/guide

rm -rf "$work"
mkdir -p "$work"
export QT_QPA_PLATFORM=offscreen

# blocks FILE LANGUAGE: the lines of all blocks of code in this language, a line "<<<<" after each.
blocks() {
    awk -v fence="\`\`\`$2" '
        /^```/ && inside { inside = 0; print "<<<<"; next }
        $0 == fence { inside = 1; next }
        inside' "$1"
}

# indented SPACES: the lines of the input, moved to the right; empty ones stay empty.
# shellcheck disable=SC2317 # called by stands
indented() {
    sed -E "s/^(.)/$1\1/"
}

# stands BLOCK FILE: whether the lines of the block follow one another in the file, at some indentation.
# shellcheck disable=SC2317 # called by check
stands() {
    local text spaces
    text=$'\n'$(cat "$2")$'\n'
    for spaces in '' '    ' '        '; do
        [[ $text != *$'\n'"$(indented "$spaces" <<< "$1")"$'\n'* ]] || return 0
    done
    printf 'this stands nowhere in %s:\n%s\n' "$2" "$1"
    return 1
}

# shown_blocks NAME FILE SOURCE: each block of C++ of the page stands in the source.
shown_blocks() {
    local line block='' count=0
    while IFS= read -r line; do
        if [[ $line == '<<<<' ]]; then
            count=$((count + 1))
            check "guide: $1: block $count stands in the program" stands "${block%$'\n'}" "$3" || true
            block=
        else
            block+=$line$'\n'
        fi
    done <<< "$(blocks "$2" cpp)"
    check "guide: $1: shows C++" test "$count" -gt 0 || true
}

# chapter NAME FILE SOURCE: the rows of one chapter.
chapter() {
    local name=$1 file=$2 source=$3
    if ! check "guide: $name: has a program" test -f "$source"; then
        return
    fi
    shown_blocks "$name" "$file" "$source"

    # Every program starts with an empty home and temporary folder of its own. Where the page shows a settings file,
    # that is there, and the last commands of the page start the program.
    local home=$work/$name code=0 commands=build/$name
    mkdir -p "$home"/{tmp,config,build}
    mkdir -m 700 "$home/runtime"
    ln -s "$build/examples/example-$name" "$home/build/$name"
    if grep -q 'trip\.zoeffect\.json' "$file"; then
        blocks "$file" json | grep -vx '<<<<' > "$home/trip.zoeffect.json"
        commands=$(blocks "$file" sh | awk -v RS='<<<<\n' '{ last = $0 } END { print last }')
    fi
    (cd "$home" && env HOME="$home" TMPDIR="$home/tmp" XDG_CONFIG_HOME="$home/config" XDG_RUNTIME_DIR="$home/runtime" \
        bash -euc "$commands" > "$work/$name.out" 2> "$work/$name.err") || code=$?
    same "guide: $name: the program ends 0" 0 "$code" || true
    same "guide: $name: says nothing on the error stream" '' "$(cat "$work/$name.err")" || true
    same "guide: $name: prints what is said" "$(blocks "$file" text | grep -vx '<<<<')" "$(cat "$work/$name.out")" || true
}

contents=
for file in "$tree"/docs/guide/[0-9][0-9]-*.md; do
    name=$(basename "$file" .md)
    contents+=$name.md$'\n'
    name=${name#*-}
    source=$tree/examples/$name.cpp
    [[ ! -d $tree/examples/$name ]] || source=$tree/examples/$name/main.cpp
    chapter "$name" "$file" "$source"
done
same 'guide: the contents name every chapter, in order' "${contents%$'\n'}" \
    "$(grep -oE '^[0-9]+\. \[[^]]+\]\([^)]+\)' "$tree/docs/guide/contents.md" | sed -E 's/.*\((.*)\)$/\1/')" || true

# The first two chapters show a whole project.
for name in from-nothing first-host; do
    page=$(echo "$tree"/docs/guide/[0-9][0-9]-$name.md)
    project=$tree/examples/$name
    same "guide: $name: all of the program is shown" "$(sed 1,3d "$project/main.cpp")" \
        "$(blocks "$page" cpp | sed '$d')" || true
    same "guide: $name: all of CMakeLists.txt is shown" "$(sed 1,3d "$project/CMakeLists.txt")" \
        "$(blocks "$page" cmake | sed '$d')" || true
done

# The page on the windowed host shows all of its CMakeLists.txt and parts of its sources, and tells how long they are.
page=$tree/docs/guide/newcomer.md
project=$tree/examples/newcomer
mkdir -p "$work/newcomer"
cat "$project"/*.{h,cpp} > "$work/newcomer/all.cpp"
shown_blocks newcomer "$page" "$work/newcomer/all.cpp"
same 'guide: newcomer: all of CMakeLists.txt is shown' "$(sed 1,3d "$project/CMakeLists.txt")" \
    "$(blocks "$page" cmake | sed '$d')" || true
lines=$(wc -l < "$work/newcomer/all.cpp")
check 'guide: newcomer: has at most 450 lines' test "$lines" -le 450 || true
check 'guide: newcomer: the page tells how many' grep -q "It has $lines lines" "$page" || true

# Every number that can stand in the log is explained once, in order.
same 'guide: log: every number is explained' \
    "$(sed -nE 's/^    [A-Za-z]+ = ([0-9]+),$/\1/p' "$tree/model/modelevents_p.h")" \
    "$(sed -nE 's/^\| ([0-9]+) \|.*/\1/p' "$tree"/docs/guide/*-log.md)" || true

# links FILE: where the page's links and pictures lead to, without what is in blocks of code.
links() {
    # shellcheck disable=SC2016 # the backticks are Markdown's
    sed '/^```/,/^```$/d' "$1" | grep -oE '\]\([^)#]+' | sed 's/^](//' || true
}
missing=
for page in "$tree"/*.md "$tree"/docs/*.md "$tree"/docs/guide/*.md; do
    while read -r target; do
        [[ -z $target || $target == *://* || -e $(dirname "$page")/$target ]] || missing+="$page: $target"$'\n'
    done <<< "$(links "$page")"
done
same 'guide: no link of any page leads nowhere' '' "$missing" || true
pictures=$(cd "$tree/docs/pictures" && printf '%s\n' *.png | LC_ALL=C sort)
shown=$(for page in "$tree"/*.md "$tree"/docs/*.md "$tree"/docs/guide/*.md; do links "$page"; done |
    sed -nE 's|.*pictures/([^/]+\.png)$|\1|p' | LC_ALL=C sort -u)
same 'guide: every picture is shown somewhere' "$pictures" "$shown" || true
finish
