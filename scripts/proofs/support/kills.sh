# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Read by the proofs that kill programs at random moments while somebody edits in them.

# kill_many WHAT TOTAL BATCH VARIABLE TEST: kills TOTAL of WHAT, BATCH by each run of the test program, to which VARIABLE
# says how many; ends the proof.
kill_many() {
    local what=$1 total=$2 batch=$3 variable=$4 program=$5
    local passed=0 failed=0 lost=0 begun count said most
    export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
    for ((begun = 0; begun < total && failed == 0; begun += batch)); do
        count=$((total - begun < batch ? total - begun : batch))
        if said=$(env "$variable=$count" "$program" 2>&1); then
            passed=$((passed + count))
            most=$(sed -nE 's/.*at most the last ([0-9]+) edits.*/\1/p' <<< "$said")
            lost=$((most > lost ? most : lost))
            echo "== $passed of $total $what"
        else
            failed=1
            echo "$said"
        fi
    done
    echo "found: $passed $what killed, at most the last $lost edits of one lost, all within 200 ms"
    echo "$passed passed, $failed failed"
    exit "$failed"
}
