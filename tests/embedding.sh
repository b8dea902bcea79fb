#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# embedding.sh BUILD: a host with Qt 6 can take the library's tree into its own build: it gets the target for its Qt, and
# nothing else is built, tested or installed. The host builds its sources eight by eight, as CMake does in a
# unity build. Works in BUILD/tests/embedding.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
work=$(readlink -f "$1")/tests/embedding

rm -rf "$work"
mkdir -p "$work/tmp"
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=offscreen

check 'embedding: the host is configured' quietly cmake -G Ninja -S "$here/embedding" -B "$work/build" \
    -DZOEFFECT_TREE="$(dirname "$here")" -DCMAKE_UNITY_BUILD=ON -DZOEFFECT_PRECOMPILE=ON || finish
check 'embedding: it is built, without a warning' quietly cmake --build "$work/build" || finish
same 'embedding: what is built' "consumer
libcareless.a
libzoeffect-qt6.so.$("$here/../scripts/version")" \
    "$(cd "$work/build" && find . \( -perm /111 -o -name '*.a' \) -type f ! -path '*/CMakeFiles/*' -printf '%f\n' | LC_ALL=C sort)" || true
same 'embedding: the tests of the host are its own' 'of-the-host' \
    "$(ctest --test-dir "$work/build" --show-only | sed -nE 's/^ *Test *#[0-9]+: //p')" || true
check 'embedding: the host runs' ctest --test-dir "$work/build" --output-on-failure || true
check 'embedding: the host installs' quietly cmake --install "$work/build" --prefix "$work/prefix" || true
same 'embedding: it installs its own alone' bin/consumer "$(cd "$work/prefix" && find . ! -type d -printf '%P\n')" || true
finish
