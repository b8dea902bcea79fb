#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# tidy.sh BUILD: clang-tidy finds nothing in the sources that the build tree BUILD compiles. A source is
# checked again only when it, a header of the tree, its compiler call or the configuration has changed:
# BUILD/tests/tidy remembers what was found clean.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
memory=$build/tests/tidy
cd "$here/.."
tree=$PWD
mkdir -p "$memory"

# The compiler's own precompiled headers are none for clang-tidy.
sed -E 's| -Winvalid-pch -include [^ ]*/cmake_pch\.hxx||' "$build/compile_commands.json" > "$memory/compile_commands.json"

# "<source> <compiler call>" for each source of the tree, the largest first.
compiled() {
    awk -F'"' -v tree="$tree/" -v build="$build/" '
        /^ *"command":/ { command = $0 }
        /^ *"file":/ && index($4, tree) == 1 && index($4, build) != 1 { print substr($4, length(tree) + 1), command }
    ' "$memory/compile_commands.json" | while read -r source command; do
        printf '%d %s %s\n' "$(wc -c < "$source")" "$source" "$command"
    done | sort -rn | cut -d' ' -f2-
}

# What all sources depend on; the tests see the tests' headers, too.
library_hash=$({
    clang-tidy --version
    find . \( -path ./build -o -path ./.git -o -path ./tests \) -prune -o \( -name '*.h' -o -name .clang-tidy \) -print |
        LC_ALL=C sort | xargs cat
} | sha256sum)
tests_hash=$(find tests \( -name '*.h' -o -name .clang-tidy \) -print | LC_ALL=C sort | xargs cat | sha256sum)

# Each check that is off has its reason in the comment above it.
for configuration in .clang-tidy tests/.clang-tidy; do
    same "tidy: $configuration: each check that is off has its reason" \
        "$(sed -nE 's/^  -([a-z].*[a-zA-Z*])?,?$/\1/p' "$configuration")" \
        "$(sed -nE 's/^# ([a-z]+-[^ ]+)  +[^ ].*/\1/p' "$configuration")" || true
done

todo=()
keys=()
count=0
while read -r source command; do
    count=$((count + 1))
    key=$({
        echo "$library_hash $command"
        [[ $source != tests/* ]] || echo "$tests_hash"
        cat "$source"
    } | sha256sum)
    key=${key%% *}
    keys+=("$key")
    [[ -e $memory/$key ]] || todo+=("$source" "$memory/$key")
done <<< "$(compiled)"

# Checks one source; one that is clean is remembered.
# shellcheck disable=SC2317 # called by xargs
tidy() {
    local output
    if output=$(clang-tidy --quiet -p "$memory" "$1" 2>&1); then
        touch "$2"
    else
        grep -vE '^[0-9]+ warnings? (and [0-9]+ errors? )?(generated|treated as errors?)' <<< "$output" || true
    fi
}
export -f tidy
export memory

findings=
if ((${#todo[@]})); then
    # shellcheck disable=SC2016 # expanded by the inner shell
    findings=$(printf '%s\0' "${todo[@]}" | xargs -0 -n2 -P"$(nproc)" bash -c 'tidy "$@"' -) || true
fi

# What was found clean in sources that have changed since is of no use any more.
for stamp in "$memory"/*; do
    [[ " ${keys[*]} " == *" ${stamp##*/} "* ]] || rm -f "$stamp"
done

unclean=0
for key in ${keys[@]+"${keys[@]}"}; do
    [[ -e $memory/$key ]] || unclean=$((unclean + 1))
done
echo "$count sources, $((${#todo[@]} / 2)) of them new or changed"
if ((count > 0 && unclean == 0)); then
    pass 'tidy: clang-tidy finds nothing'
else
    fail 'tidy: clang-tidy finds nothing' "$findings"
fi
finish
