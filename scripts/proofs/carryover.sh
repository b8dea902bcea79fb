#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# What a dry run of carrying settings over shows is what happens, and nobody waits for it. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove carryover [CASES]

Builds the kit with -O2 in build/carryover. Carries random settings over CASES times (100,000 by default): each time
the file has to hold afterwards what the dry run showed, and a second time nothing more may change. Then carries
settings over to 10,000 open files: the dry run may take 2 seconds, the files 1. The last line counts what passed and
failed. Let nothing else run meanwhile.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"
cases=${1:-100000}

scripts/install-packages build test bench || exit 1

# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
echo '== building (bench, with the kit and its tests)'
quietly cmake --preset bench -B build/carryover -DCMAKE_CXX_FLAGS_RELEASE="-O2 -g1 -DNDEBUG" \
    -DZOEFFECT_BUILD_KIT=ON -DZOEFFECT_BUILD_TESTS=ON
quietly cmake --build build/carryover --target tst_kit_randomcarryover zomanyfiles --parallel "$(nproc)"

export QT_QPA_PLATFORM=offscreen
passed=0
failed=0
count() {
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL!  : carryover: $*"
    fi
}

echo "== $cases random cases"
count env ZOKIT_CASES="$cases" build/carryover/tests/kit/tst_kit_randomcarryover -maxwarnings 0 dryRunIsTheOutcome

echo '== 10,000 files'
figures=$(build/carryover/benchmarks/zomanyfiles 10000) || failed=$((failed + 1))
echo "$figures"
milliseconds() {
    sed -n "s/.*$1 \([0-9]*\) ms.*/\1/p" <<< "$figures"
}
count test "$(milliseconds 'dry run')" -le 2000
count test "$(milliseconds apply)" -le 1000

echo "found: $cases random cases, $figures"
echo "$passed passed, $failed failed"
[[ $failed == 0 ]]
