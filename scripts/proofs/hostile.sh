#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Meets the library with hostile values, trees and pictures, in full. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove hostile [--qt5 | --qt6] [WHAT...]

Runs the tests of tests/hostile in their long forms, with both Qts, or one:

  values    every hostile value under every key, through every operation (./test takes a thirteenth of the keys)
  results   what operations make of hostile values, literally
  trees     a million items, a million levels, 10,000 frame effects, names that mean something elsewhere
  images    5,000 damaged pictures (./test: some 500), and those that claim more than they hold
  painting  texts, fonts, images and frames that are hard to paint

Without WHAT all of these: some ten minutes the first time. The builds are those of ./test. The last line is
"N passed, N failed"; ends 0 when every row passed, 1 otherwise, 2 on wrong usage.
TEXT
}

presets=()
parts=()
for argument in "$@"; do
    case $argument in
    --qt5) presets+=(dev) ;;
    --qt6) presets+=(dev-qt6) ;;
    values | results | trees | images | painting) parts+=("$argument") ;;
    --help | -h)
        usage
        exit 0
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done
((${#presets[@]})) || presets=(dev dev-qt6)
((${#parts[@]})) || parts=(values results trees images painting)

# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
scripts/install-packages build test qt6 || exit 1
export QT_QPA_PLATFORM=offscreen
export QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
export ZOEFFECT_HOSTILE_ALL=1
export ZOEFFECT_HOSTILE_IMAGES=5000
passed=0
failed=0

# run PRESET PART
run() {
    local rows=build/$1-hostile-$2.txt status=0 good bad
    "build/$1/tests/hostile/tst_hostile_$2" > "$rows" 2>&1 || status=$?
    good=$(grep -E '^PASS   : ' "$rows" | grep -cvE '::(initTestCase|cleanupTestCase)\(\)$' || true)
    bad=$(grep -cE '^(FAIL!  |XPASS  |SKIP   |BFAIL  ): ' "$rows" || true)
    if ((status != 0 && bad == 0)) || ((good + bad == 0)); then
        bad=$((bad + 1))
        echo "FAIL!  : $1, $2 ended badly, status $status"
        tail -n 20 "$rows"
    fi
    printf '   %-8s %-8s %6d passed, %d failed\n' "$1" "$2" "$good" "$bad"
    grep -E -A 4 '^FAIL!  : ' "$rows" | cut -c 1-600 || true
    passed=$((passed + good))
    failed=$((failed + bad))
}

for preset in "${presets[@]}"; do
    build "$preset" "${parts[@]/#/tst_hostile_}"
    for part in "${parts[@]}"; do
        run "$preset" "$part"
    done
done

echo "$passed passed, $failed failed"
exit $((failed > 0))
