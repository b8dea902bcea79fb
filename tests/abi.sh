#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# abi.sh BUILD: the library of the build tree BUILD fits hosts of the last release, and scripts/abi would notice if it
# did not: it is held against descriptions of releases that never were. Works in BUILD/tests/abi.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
tree=$(dirname "$here")
work=$build/tests/abi
version=$("$tree/scripts/version")

rm -rf "$work"
mkdir -p "$work"
check 'abi: the version fits hosts of the last release' "$tree/scripts/abi" "$build" || true

# In each the release differs in one line from what is recorded.
released=$(printf '%s\n' "$tree"/packaging/abi/*.abi.xz | sort --version-sort | tail -n 1)
xz --decompress --stdout "$released" > "$work/released"

# other NAME EXPECTED SED: what scripts/abi says of the description that this sed program makes.
other() {
    local name=$1 expected=$2 program=$3 said
    sed -E "$program" "$work/released" > "$work/changed"
    check "abi: $name: the description is another one" test -n "$(cmp "$work/released" "$work/changed" || true)" || true
    xz --stdout "$work/changed" > "$work/libzoeffect-$version.abi.xz"
    said=$("$tree/scripts/abi" "$build" "$work/libzoeffect-$version.abi.xz" 2>&1 | tail -n 1) || true
    same "abi: $name" "scripts/abi: this $expected, not $version" "$said" || true
}
IFS=. read -r major minor _ <<< "$version"
other 'a member elsewhere' "breaks hosts of $version and takes version $((major + 1)).0.0" \
    "/<class-decl name='CropData'/,/<\/class-decl>/s/layout-offset-in-bits='32'/layout-offset-in-bits='64'/"
other 'a function that is gone' "breaks hosts of $version and takes version $((major + 1)).0.0" \
    "/<elf-symbol name='_ZNK13ZoEffectModel8baseSizeEv'/s/baseSize/moreSize/"
other 'a function that has come' "adds to $version and takes version $major.$((minor + 1)).0" \
    "/<elf-symbol name='_ZNK13ZoEffectModel8baseSizeEv'/d; /linkage-name='_ZNK13ZoEffectModel8baseSizeEv'/,/<\/function-decl>/d"
finish
