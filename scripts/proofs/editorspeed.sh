#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# How fast the editor is. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove editorspeed

Builds the editor with -O2 in build/editorspeed and measures it on a screen of its own: how soon its window is there,
200 files that are dropped, a watermark that is dragged, the time line, the differences of 1,000 files, the kit's
preview, and how soon the true picture follows. A row tells a figure, its bound, and whether that holds. The last line
is "N passed, N failed" (figures); ends 0 when all were measured, also where a bound is missed. Let nothing else run
meanwhile.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 0 "$@"

scripts/install-packages build run test xvfb || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
echo '== building (bench, with the editor and its tests)'
quietly cmake --preset bench -B build/editorspeed -DCMAKE_CXX_FLAGS_RELEASE="-O2 -g1 -DNDEBUG" \
    -DZOEFFECT_BUILD_KIT=ON -DZOEFFECT_BUILD_PROGRAMS=ON -DZOEFFECT_BUILD_TESTS=ON -DZOEFFECT_BUILD_BENCHMARKS=OFF
quietly cmake --build build/editorspeed --target zoeditor editorspeed --parallel "$(nproc)"

# shellcheck source-path=SCRIPTDIR source=support/display.sh
source scripts/proofs/support/display.sh
unset QT_LINUX_ACCESSIBILITY_ALWAYS_ON # Nobody reads the screen here.
if ! build/editorspeed/tests/editor/editorspeed build/editorspeed/apps/zoeditor/zoeditor | tee "$folder/said"; then
    grep -q ' passed, ' "$folder/said" || echo '0 passed, 1 failed' # It ended before its time.
    exit 1
fi
