#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Replays the recorded sessions under every compiler and Qt. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: replay [SESSION.session...]

Replays the recorded sessions (all of tests/replay/recordings, or those named) with the library built by g++ and
clang++, with Qt 5 and Qt 6, without optimisation and with -O2, and compares what comes of each with what is
expected and with what came of it in the other builds. The builds stay in build/replay; the first time takes
some minutes.

Ends with the line "N passed, N failed"; 0 when every row passed, 1 otherwise, 2 on wrong usage.
TEXT
}

sessions=()
for argument in "$@"; do
    case $argument in
    --help | -h)
        usage
        exit 0
        ;;
    -*)
        usage >&2
        exit 2
        ;;
    *)
        if [[ ! -f $argument ]]; then
            echo "replay: there is no $argument" >&2
            exit 2
        fi
        sessions+=("$argument")
        ;;
    esac
done
((${#sessions[@]})) || sessions=(tests/replay/recordings/*.session)

scripts/install-packages build qt6 test
if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

readonly folder=build/replay
mkdir -p "$folder"
passed=0
failed=0

# row NAME COMMAND...: counts it, and shows what it says when it fails.
row() {
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL!  : %s\n%s\n' "$name" "${output:0:4000}"
    fi
}

# build NAME COMPILER QT OPTIMISATION: under folder/NAME.
build() {
    cmake -G Ninja -S . -B "$folder/$1" -DCMAKE_CXX_COMPILER="$2" -DZOEFFECT_QT_MAJOR="$3" \
        -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g1 $4" -DZOEFFECT_BUILD_TESTS=ON \
        -DZOEFFECT_BUILD_HOST=OFF -DZOEFFECT_WARNINGS_AS_ERRORS=ON > "$folder/$1.log" 2>&1 &&
        cmake --build "$folder/$1" --target replay --parallel "$(nproc)" >> "$folder/$1.log" 2>&1
}

# replay BUILD SESSION DUMP: a dump of what it did, or its messages.
replay() {
    "$folder/$1/tests/replay/replay" "$2" > "$3" 2> "$3.messages" || {
        tail -n 20 "$3.messages"
        return 1
    }
}

builds=()
for optimisation in -O0 -O2; do
    for qt in 5 6; do
        for compiler in g++ clang++; do
            name=$compiler-qt$qt$optimisation
            echo "== $name"
            if build "$name" "$compiler" "$qt" "$optimisation"; then
                builds+=("$name")
            else
                failed=$((failed + 1))
                printf 'FAIL!  : %s: the build\n' "$name"
                tail -n 40 "$folder/$name.log"
            fi
        done
    done
done

for session in "${sessions[@]}"; do
    expected=${session%.session}.expected
    session_name=$(basename "$session" .session)
    first=
    for name in ${builds[@]+"${builds[@]}"}; do
        dump=$folder/$name/$session_name.dump
        row "$session_name with $name: replayed" replay "$name" "$session" "$dump"
        if [[ -f $expected ]]; then
            row "$session_name with $name: as expected" diff -U1 "$expected" "$dump"
        fi
        if [[ -n $first ]]; then
            row "$session_name with $name: as the first build" cmp "$first" "$dump"
        fi
        first=${first:-$dump}
    done
    echo "== $session_name: ${#builds[@]} builds compared"
done

echo "$passed passed, $failed failed"
((passed > 0 && failed == 0))
