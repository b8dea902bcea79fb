#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Meets the library with hostile values, trees and pictures, in full. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: hostile [--qt5 | --qt6] [WHAT...]

Runs the tests of tests/hostile in their long forms, with both Qts, or one:

  values    every hostile value under every key, through every operation (./test takes a thirteenth of the keys)
  results   what operations make of hostile values, literally
  trees     a million items, a million levels, 10,000 frame effects, names that mean something elsewhere
  images    5,000 damaged pictures (./test: some 500), and those made to exhaust who opens them
  painting  texts, fonts, images and frames that are hard to paint

Without WHAT all of these: some ten minutes the first time. The builds stay in build/hostile. The last line is
"N passed, N failed"; ends 0 when every row passed, 1 otherwise, 2 on wrong usage.
TEXT
}

qts=()
parts=()
for argument in "$@"; do
    case $argument in
    --qt5) qts+=(5) ;;
    --qt6) qts+=(6) ;;
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
((${#qts[@]})) || qts=(5 6)
((${#parts[@]})) || parts=(values results trees images painting)

groups=(build test)
[[ " ${qts[*]} " != *' 6 '* ]] || groups+=(qt6)
scripts/install-packages "${groups[@]}" || exit 1
if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

readonly folder=$PWD/build/hostile
mkdir -p "$folder"
export QT_QPA_PLATFORM=offscreen
export QTEST_FUNCTION_TIMEOUT=3600000 # Milliseconds.
export ZOEFFECT_HOSTILE_ALL=1
export ZOEFFECT_HOSTILE_IMAGES=5000
passed=0
failed=0

# quietly COMMAND...: its output is shown only when it fails.
quietly() {
    if ! "$@" > "$folder/log.txt" 2>&1; then
        cat "$folder/log.txt"
        echo "hostile: $* failed"
        return 1
    fi
}

# build QT
build() {
    local targets=("${parts[@]/#/tst_hostile_}")
    quietly cmake -G Ninja -S . -B "$folder/qt$1" -DCMAKE_BUILD_TYPE=Debug "-DZOEFFECT_QT_MAJOR=$1" \
        -DZOEFFECT_BUILD_TESTS=ON -DZOEFFECT_BUILD_HOST=OFF -DZOEFFECT_WARNINGS_AS_ERRORS=ON \
        -DZOEFFECT_TEST_PACKAGE=OFF -DZOEFFECT_TEST_SOURCES=OFF &&
        quietly cmake --build "$folder/qt$1" --target "${targets[@]}"
}

# run QT PART
run() {
    local rows=$folder/qt$1-$2.txt status=0 good bad
    "$folder/qt$1/tests/hostile/tst_hostile_$2" -o "$rows,txt" > "$folder/log.txt" 2>&1 || status=$?
    good=$(grep -E '^PASS   : ' "$rows" | grep -cvE '::(initTestCase|cleanupTestCase)\(\)$' || true)
    bad=$(grep -cE '^(FAIL!  |XPASS  |SKIP   |BFAIL  ): ' "$rows" || true)
    if ((status != 0 && bad == 0)) || ((good + bad == 0)); then
        bad=$((bad + 1))
        echo "FAIL!  : Qt $1, $2 ended badly, status $status"
        tail -n 20 "$folder/log.txt"
    fi
    printf '   Qt %s  %-8s %6d passed, %d failed\n' "$1" "$2" "$good" "$bad"
    grep -E -A 4 '^FAIL!  : ' "$rows" | cut -c 1-600 || true
    passed=$((passed + good))
    failed=$((failed + bad))
}

for qt in "${qts[@]}"; do
    echo "== hostile: building with Qt $qt"
    if ! build "$qt"; then
        failed=$((failed + 1))
        continue
    fi
    for part in "${parts[@]}"; do
        run "$qt" "$part"
    done
done

echo "$passed passed, $failed failed"
exit $((failed > 0))
