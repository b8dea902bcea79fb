#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Edits settings at random under the eyes of their item model. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove items [EDITS]

Makes that many random edits (100,000 by default) of settings that an item model shows, undo and redo among them, with
Qt 5 and with Qt 6. Qt's own tester looks at the model all the while, and ends the run at its first wrong word. The last
line is "N passed, N failed" (builds); ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"
edits=${1:-100000}

scripts/install-packages build qt6 test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
passed=0
failed=0
for preset in dev dev-qt6; do
    build "$preset" tst_kit_settingsmodel
    if said=$(ZOKIT_STEPS=$edits "build/$preset/tests/kit/tst_kit_settingsmodel" 2>&1); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "$said"
    fi
    echo "== items: $preset: ended"
done

echo "found: $edits edits with each Qt"
echo "$passed passed, $failed failed"
((failed == 0))
