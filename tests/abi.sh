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
abi=$here/../scripts/abi
work=$build/tests/abi
version=$("$here/../scripts/version")
IFS=. read -r major minor _ <<< "$version"

rm -rf "$work"
mkdir -p "$work"
check 'abi: the library can be described' "$abi" --record "$build" "$work/same.abi.xz" || finish
check 'abi: the version fits hosts of the last release' "$abi" "$work/same.abi.xz" || true
xz --decompress --stdout "$work/same.abi.xz" > "$work/released"

# other NAME EXPECTED SED: what scripts/abi says where the last release had what this sed program makes.
other() {
    local name=$1 expected=$2 program=$3 description=$work/libzoeffect-$version.abi.xz
    sed -E "$program" "$work/released" > "$work/changed"
    xz --stdout "$work/changed" > "$description"
    same "abi: $name" "$expected" "$("$abi" "$work/same.abi.xz" "$description" 2>&1 | tail -n 1)" || true
}
breaks="scripts/abi: this breaks hosts of $version and takes version $((major + 1)).0.0, not $version"
other 'a member elsewhere' "$breaks" \
    "/<class-decl name='CropData'/,/<\/class-decl>/s/layout-offset-in-bits='32'/layout-offset-in-bits='64'/"
other 'a function that has come' \
    "scripts/abi: this adds to $version and takes version $major.$((minor + 1)).0, not $version" \
    "/<elf-symbol name='_ZNK13ZoEffectModel8baseSizeEv'/d; /linkage-name='_ZNK13ZoEffectModel8baseSizeEv'/,/<\/function-decl>/d"
finish
