#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Plays random host sessions against a naive account of the library. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove sessions [--asan | --qt6] STEPS [SEED]

Builds tests/sessions and plays that many steps of random sessions over all public operations, each held against
the reference model of tests/sessions: result, trees, signals, log and preference store. Without SEED with a random
one; it is printed with each run of up to a million steps (about half a minute), and one more for each further run.

  --asan  with clang++ under AddressSanitizer and UndefinedBehaviorSanitizer (build/asan), else build/dev
  --qt6   with Qt 6 (build/dev-qt6)

A session that fails is made as short as possible and printed as calls, with the RC_PARAMS that play it again. The
whole output of the last run stays in build/sessions.txt. Ends with the line "N passed, N failed" (rows of the
tests); 0 when none failed, 1 otherwise, 2 on wrong usage.
TEXT
}

readonly longest_run=1000000
preset=dev
groups=(build test librapidcheck-dev)
case ${1:-} in
--help | -h)
    usage
    exit 0
    ;;
--asan)
    preset=asan
    shift
    ;;
--qt6)
    preset=dev-qt6
    groups+=(qt6)
    shift
    ;;
esac
if (($# < 1 || $# > 2)) || [[ ! $1 =~ ^[1-9][0-9]{0,11}$ || ! ${2:-0} =~ ^[0-9]{1,15}$ ]]; then
    usage >&2
    exit 2
fi
steps=$((10#$1))
seed=${2:-$(od -An -N5 -tu8 /dev/urandom | tr -d ' ')}
seed=$((10#$seed))

scripts/install-packages "${groups[@]}" || exit 1

# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
output=$PWD/build/sessions.txt
build "$preset" tst_sessions

if [[ $preset == asan ]]; then
    export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:detect_stack_use_after_return=1
    export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
    export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
fi

# rows KIND: how many rows of that kind the last run has, without the two that every test program has.
rows() {
    grep "^$1 *: " "$output" | grep -cvE '::(initTestCase|cleanupTestCase)\(\)$' || true
}

passed=0
failed=0
played=0
while ((played < steps)); do
    run=$((steps - played < longest_run ? steps - played : longest_run))
    started=$SECONDS
    status=0
    ZOEFFECT_SESSION_STEPS=$run RC_PARAMS="seed=$seed" "build/$preset/tests/sessions/tst_sessions" \
        > "$output" 2>&1 || status=$?
    run_failed=$(rows 'FAIL!')
    ((status == 0 || run_failed > 0)) || run_failed=1 # It crashed.
    passed=$((passed + $(rows PASS)))
    failed=$((failed + run_failed))
    played=$((played + run))
    echo "== sessions: $played of $steps steps, seed $seed: $run_failed failed in $((SECONDS - started)) s"
    if ((run_failed > 0)); then
        sed '/^PASS /d' "$output"
        echo "sessions: ended $status; ZOEFFECT_SESSION_STEPS=$run RC_PARAMS=seed=$seed plays it again, and" \
            "ZOEFFECT_SESSION_TRACE=1 tells each call before it is made"
        break
    fi
    seed=$((seed + 1))
done

echo "found: $played steps"
echo "$passed passed, $failed failed"
((failed == 0))
