#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# tidy.sh BUILD: clang-tidy finds nothing in the sources that the build tree BUILD compiles. Only what has changed is
# checked again.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
build=$(readlink -f "$1")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
# shellcheck source-path=SCRIPTDIR source=support/checkedsources.sh
source "$here/support/checkedsources.sh"
cd "$here/.."

while read -r configuration; do
    check_reasons "$configuration" "$(sed -nE 's/^  -([a-z].*[a-zA-Z*])?,?$/\1/p' "$configuration")"
done <<< "$(find . -path ./build -prune -o -name .clang-tidy -printf '%P\n' | LC_ALL=C sort)"

# shellcheck disable=SC2317 # called by check_sources
examine() {
    clang-tidy --quiet -p "$1" "$2"
}
check_sources "$build" "$(clang-tidy --version)" .clang-tidy
finish
