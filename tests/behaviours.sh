#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# behaviours.sh: the list of deliberate oddities, docs/behaviours.md, is whole. Each row has an example and names tests
# that there are, and each file that marks one is named.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
cd "$here/.."
page=docs/behaviours.md

# rows HEADING: the rows of all tables whose first column has this heading.
rows() {
    awk -v heading="| $1 |" '
        index($0, heading) == 1 { inside = 1; next }
        !/^\|/ { inside = 0 }
        inside && !/^\|-/' "$page"
}

# exists PROGRAM SLOT: whether a test program has this slot.
exists() {
    find tests -name "$1.cpp" -exec grep -qE "\bvoid ([A-Za-z]+::)?$2\(\)" {} \; -print | grep -q .
}

oddities=$(rows 'what happens')
check 'behaviours: the page has rows' test -n "$oddities" || true

name='tst_[a-z_]+::[A-Za-z0-9]+'
same 'behaviours: each row has an example and names its tests' '' \
    "$(grep -vE "^\| [^|]*[^ |][^|]* \| [^|]*[^ |][^|]* \| $name(, $name)* \|$" <<< "$oddities" || true)" || true

missing=
while IFS=: read -r program _ slot; do
    exists "$program" "$slot" || missing+="$program::$slot"$'\n'
done <<< "$(grep -oE "$name" <<< "$oddities" | LC_ALL=C sort -u)"
same 'behaviours: each test that is named exists' '' "${missing%$'\n'}" || true

same 'behaviours: each file with a mark is named' \
    "$(grep -rilF --include='*.h' --include='*.cpp' 'deliberate:' catalogue defaults log model platform | LC_ALL=C sort)" \
    "$(rows file | awk -F ' *[|] *' '{ print $2 }')" || true
finish
