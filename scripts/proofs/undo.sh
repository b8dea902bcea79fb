#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Undoes and redoes random sessions. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove undo [STEPS [SEED]]

Makes that many random steps (1,000,000 by default) in sessions of up to 500: edits, lists, resets, gestures, many files,
saved defaults, undo and redo. After each session undoing everything has to give the settings files of its beginning,
byte by byte, and redoing everything those of its end. Without SEED with a random one, which is printed. The last line
is "N passed, N failed" (runs of up to 100,000 steps); ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 2 "$@"
steps=${1:-1000000}
seed=${2:-$(od -An -N3 -tu4 /dev/urandom | tr -d ' ')}

scripts/install-packages build test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev tst_kit_history

export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
readonly longest_run=100000
passed=0
failed=0
done=0
while ((done < steps && failed == 0)); do
    run=$((steps - done < longest_run ? steps - done : longest_run))
    if said=$(ZOKIT_STEPS=$run ZOKIT_SEED=$seed build/dev/tests/kit/tst_kit_history undoAllIsExact 2>&1); then
        passed=$((passed + 1))
        done=$((done + run))
        echo "== undo: $done of $steps steps, seed $seed"
    else
        failed=1
        echo "$said"
        echo "undo: ZOKIT_STEPS=$run ZOKIT_SEED=$seed build/dev/tests/kit/tst_kit_history undoAllIsExact plays it again"
    fi
    seed=$((seed + 1))
done

echo "found: $done steps, each session undone and redone byte by byte"
echo "$passed passed, $failed failed"
((failed == 0))
