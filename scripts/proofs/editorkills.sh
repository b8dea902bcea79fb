#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Kills editors. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove editorkills [EDITORS]

Kills that many editors (300 by default) at random moments while somebody edits in their windows, offscreen, by keys and
actions. What the next start recovers is compared with the same edits made again: at most those of the last 200 ms may
be lost, and undoing all gives the clip as it was opened. The last line is "N passed, N failed" (editors); ends 0 when
none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"
editors=${1:-300}

scripts/install-packages build run test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev tst_editor_kills

export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
readonly batch=30
passed=0
failed=0
lost=0
for ((done = 0; done < editors && failed == 0; done += batch)); do
    count=$((editors - done < batch ? editors - done : batch))
    if said=$(ZOEDITOR_KILLS=$count build/dev/tests/editor/tst_editor_kills 2>&1); then
        passed=$((passed + count))
        most=$(sed -nE 's/.*at most the last ([0-9]+) edits.*/\1/p' <<< "$said")
        lost=$((most > lost ? most : lost))
        echo "== editorkills: $passed of $editors editors"
    else
        failed=1
        echo "$said"
    fi
done

echo "found: $passed editors killed, at most the last $lost edits of one lost, all within 200 ms"
echo "$passed passed, $failed failed"
((failed == 0))
