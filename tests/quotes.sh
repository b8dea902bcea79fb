#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# quotes.sh: each line of library and kit that the lists of tests/mutants and tests/coverage quote stands in the file that
# they name.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
cd "$here/.."

# quotes FILE: of each block its file and the line behind it, with a tab between.
quotes() {
    { grep -v '^#' "$1" || true; } | awk -v RS= -F '\n' '{ sub(/,.*/, "", $1); sub(/^- /, "", $2); print $1 "\t" $2 }'
}

for list in tests/mutants/survivors{,-kit}.txt tests/coverage/exceptions{,-kit}.txt; do
    missing=$([[ -e $list ]] || echo "$list itself")
    while IFS=$'\t' read -r file line; do
        [[ -e $file && $(tr -s '[:space:]' ' ' < "$file") == *"$line"* ]] || missing+="$file: $line"$'\n'
    done < <(quotes "$list")
    same "quotes: each line that $list quotes is there" '' "$missing" || true
done
finish
