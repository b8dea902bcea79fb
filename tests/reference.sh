#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# reference.sh BUILD: docs/reference-properties.md is what zoreference of the build tree BUILD writes, in any language of
# the system.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
page=$here/../docs/reference-properties.md
program=$(readlink -f "$1")/docs/reference/zoreference

for language in C.UTF-8 C; do
    same "reference: the page of all properties is up to date, LC_ALL=$language" "$(cat "$page")" \
        "$(LC_ALL=$language "$program")" || true
done
code=0
"$program" > /dev/full || code=$?
same 'reference: a full disk is noticed' 1 "$code" || true
finish
