#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Measures which lines and branches of the library, or of the kit, the tests run through. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove coverage [kit]

Builds the library with g++ --coverage in build/coverage, runs the fast tests (those in tests and
tests/internal), and counts: every line of the library has to run, and at least 97 % of the branches. Each
branch that no test takes is listed with its reason in tests/coverage/exceptions.txt, and so are the few lines
that only injected faults reach. What is missing there fails, and so does what is listed and runs by now. The
last line counts the rows that passed and failed.

With "kit" the same for the kit: its tests (tests/kit, tests/regressions.cpp) and those of the programs that drive it
(tests/apps, tests/editor, tests/quick), built in build/coverage-kit, and tests/coverage/exceptions-kit.txt. Random
tests of the kit take a tenth of their steps.
TEXT
}

case ${1:-} in
'') part=library ;;
kit) part=kit ;;
--help | -h)
    usage
    exit 0
    ;;
*)
    usage >&2
    exit 2
    ;;
esac

scripts/install-packages build test python3 gcovr || exit 1

# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
if [[ $part == kit ]]; then
    build=$PWD/build/coverage-kit with_kit=ON target=zoeffectkit exceptions=tests/coverage/exceptions-kit.txt
    folders=(kit/) proofs=OFF
    mapfile -t programs <<< "$(find tests/kit tests/apps tests/editor tests/quick -name 'tst_*.cpp' -printf '%f\n' |
        sed 's/\.cpp$//' | LC_ALL=C sort)"
    programs+=(tst_regressions)
    export ZOKIT_STEPS=10000
else
    build=$PWD/build/coverage with_kit=OFF target=zoeffect_objects exceptions=tests/coverage/exceptions.txt
    folders=(catalogue/ defaults/ log/ model/ platform/ values/) proofs=ON
    mapfile -t programs <<< "$(find tests tests/internal tests/values tests/faults tests/faults/internal -maxdepth 1 \
        -name 'tst_*.cpp' -printf '%f\n' | sed 's/\.cpp$//' | LC_ALL=C sort -u)"
fi
mkdir -p "$build"

# Nothing of library and kit throws, and one thread uses them. Without these the compiler makes branches of its own
# that no source line has: the way out past every temporary when an exception flies, and the wait for another
# thread at every static variable.
cat > "$build/flags.cmake" << TEXT
cmake_language(DEFER DIRECTORY "\${CMAKE_SOURCE_DIR}" CALL
  target_compile_options $target PRIVATE -fno-exceptions -fno-threadsafe-statics)
TEXT

echo '== coverage: building'
quietly cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=g++ \
    '-DCMAKE_CXX_FLAGS=--coverage -O0' "-DCMAKE_PROJECT_zoeffect_INCLUDE=$build/flags.cmake" \
    -DZOEFFECT_QT_MAJOR=5 -DZOEFFECT_BUILD_TESTS=ON -DZOEFFECT_WARNINGS_AS_ERRORS=ON \
    -DZOEFFECT_TEST_PACKAGE=OFF -DZOEFFECT_TEST_SOURCES=OFF "-DZOEFFECT_TEST_PROOFS=$proofs" \
    -DZOEFFECT_TEST_SECONDS=1500 \
    "-DZOEFFECT_BUILD_KIT=$with_kit" "-DZOEFFECT_BUILD_PROGRAMS=$with_kit"
quietly cmake --build "$build" --target "${programs[@]}"

echo '== coverage: running the tests'
find "$build" -name '*.gcda' -delete
quietly ctest --test-dir "$build" --tests-regex "^($(IFS='|' && echo "${programs[*]}"))\$" \
    --parallel "$(nproc)" --output-on-failure

# What remains of the compiler's own: the edge on which a function of Qt would throw (throw branches), and
# branches on lines without code, such as the end of a block, where temporaries are removed (unreachable
# branches). The check of the trees runs along with the tests only, to find what the tests do not look at.
quietly gcovr --root . --object-directory "$build" "${folders[@]/#/--filter=}" --exclude-throw-branches \
    --exclude-unreachable-branches --exclude model/treecheck_p --json "$build/report.json" "$build"
python3 tests/coverage/coverage.py "$build/report.json" "$exceptions"
