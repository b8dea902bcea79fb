#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Changes the library, or the kit, in many small ways and lets the tests find each. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove mutants [--kit] [--new] [--resume] [--update] [--minutes M] [N [FILE...]]

Makes N mutants of the library (800 by default) and runs the fast tests on each, until one fails. A mutant
is the library with one small change: a condition turned, a constant changed, a call or a signal left out, two
arguments swapped, a result one too large. One that no test finds must be explained in
tests/mutants/survivors.txt, and at least 97 % must be found; those explained as equivalent, since they do
what the library does, do not count for that.

  --kit        mutants of the kit instead, with the kit's tests, in build/mutants-kit; tests/mutants/survivors-kit.txt
  --new        leave out the mutants that are listed as survivors
  --resume     go on with the last run, which was stopped; of the same tree only
  --minutes M  start no mutant after so many minutes
  --update     take out of survivors.txt what is found or gone, and put in what survived, for the reasons to be written
  FILE         try only the mutants of this source, as in model/scaling_p.cpp

The mutants are chosen by a fixed rule, so that they are the same every time. All of them are compiled into one
build, in build/mutants, and each process picks one. build/mutants/results.txt, with date and commit, tells of
each which test program found it. The last line counts those that were found or are explained, and those that are neither.
TEXT
}

for argument in "$@"; do
    case $argument in
    --help | -h)
        usage
        exit 0
        ;;
    --kit | --new | --resume | --update | --minutes) ;;
    -*)
        usage >&2
        exit 2
        ;;
    esac
done

scripts/install-packages build test python3 python3-clang-14 || exit 1

if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
export PYTHONDONTWRITEBYTECODE=1
# Debian's own, which has the module clang.
exec /usr/bin/python3 tests/mutants/mutants.py "$@"
