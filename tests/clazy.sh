#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# clazy.sh BUILD: clazy finds nothing in the sources that the build tree BUILD compiles, moc's aside. Only what has
# changed is checked again.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
build=$(readlink -f "$1")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
# shellcheck source-path=SCRIPTDIR source=support/checkedsources.sh
source "$here/support/checkedsources.sh"
cd "$here/.."

check_reasons .clazy "$(sed -n 's/^no-//p' .clazy)"

checks=$(grep '^[a-z]' .clazy | paste -sd,)
export checks
# shellcheck disable=SC2317 # called by check_sources
examine() {
    clazy-standalone -p "$1" --checks="$checks" --ignore-dirs='_autogen/' \
        --extra-arg=-Werror --extra-arg=-ferror-limit=0 "$2"
}
check_sources "$build" "$(clazy-standalone --version)" .clazy
finish
