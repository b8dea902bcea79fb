#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Lets a monkey loose on the editor's window. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove monkey [EVENTS [SEED]]

Does that many random things (100,000 by default) in the editor's window, offscreen, under the sanitizers, and as many
in a plain build: clicks, drags, keys, turns of the wheel, actions. After each hundred the settings of every file are
written and read again, equal; after each thousand undoing all gives the first state, byte by byte. In the plain build
the window is never blocked for more than 100 ms. Without SEED with a random one, which is printed. The last line is
"N passed, N failed" (runs of up to 10,000 events); ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 2 "$@"
events=${1:-100000}
seed=${2:-$(od -An -N3 -tu4 /dev/urandom | tr -d ' ')}

scripts/install-packages build run test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
for preset in asan dev; do
    build "$preset" tst_editor_monkey
done

export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=36000000 # Milliseconds.
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
readonly longest_run=10000 session=1000 # Events.
passed=0
failed=0
blocked=0
done=0
while ((done < events)); do
    run=$((events - done < longest_run ? events - done : longest_run))
    for setting in 'asan 0' 'dev 100'; do
        read -r preset patience <<< "$setting"
        export ZOEDITOR_EVENTS=$run ZOEDITOR_SEED=$seed ZOEDITOR_PATIENCE=$patience
        if said=$("build/$preset/tests/editor/tst_editor_monkey" -maxwarnings 0 2>&1); then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
            grep -v '^QWARN' <<< "$said" # Of the platform, which does not support this and that.
            echo "monkey: LSAN_OPTIONS=$LSAN_OPTIONS ZOEDITOR_PATIENCE=$patience ZOEDITOR_EVENTS=$run ZOEDITOR_SEED=$seed" \
                "build/$preset/tests/editor/tst_editor_monkey -maxwarnings 0 plays it again"
        fi
        sed -n "s/^.*events; the window/$preset: the window/p" <<< "$said"
        if [[ $preset == dev ]]; then
            most=$(sed -nE 's/.*blocked for at most ([0-9]+) ms.*/\1/p' <<< "$said")
            blocked=$((${most:-0} > blocked ? most : blocked))
        fi
    done
    done=$((done + run))
    echo "== monkey: $done of $events events, seed $seed"
    seed=$((seed + run / session))
done

echo "found: $done events in each build, the window blocked for at most $blocked ms"
echo "$passed passed, $failed failed"
((failed == 0))
