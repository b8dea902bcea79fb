#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Kills hosts that keep a journal. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove journal [HOSTS]

Kills that many hosts (1,000 by default) at random moments while they edit settings and keep a journal. What the journal
of each brings back (settings, history, selections, clean place) is compared with the same edits made again: at most
those of the last 200 ms may be lost. The last line is "N passed, N failed" (hosts); ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"
hosts=${1:-1000}

scripts/install-packages build test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev tst_kit_killedhosts

export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
readonly batch=100
passed=0
failed=0
lost=0
for ((done = 0; done < hosts && failed == 0; done += batch)); do
    count=$((hosts - done < batch ? hosts - done : batch))
    if said=$(ZOKIT_KILLS=$count build/dev/tests/kit/tst_kit_killedhosts 2>&1); then
        passed=$((passed + count))
        most=$(sed -nE 's/.*at most the last ([0-9]+) edits.*/\1/p' <<< "$said")
        lost=$((most > lost ? most : lost))
        echo "== journal: $passed of $hosts hosts"
    else
        failed=1
        echo "$said"
    fi
done

echo "found: $passed hosts killed, at most the last $lost edits of one lost, all within 200 ms"
echo "$passed passed, $failed failed"
((failed == 0))
