#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Kills editors. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove editorkills [EDITORS]

Kills that many editors (300 by default) at random moments while somebody edits in their windows, offscreen, by keys and
actions. What the next start recovers is compared with the same edits made again: at most those of the last 200 ms may
be lost, and undoing all gives the clip as it was opened. The last line is "N passed, N failed" (editors); ends 0 when
none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"

scripts/install-packages build run test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
# shellcheck source-path=SCRIPTDIR source=support/kills.sh
source scripts/proofs/support/kills.sh
build dev tst_editor_kills
kill_many editors "${1:-300}" 30 ZOEDITOR_KILLS build/dev/tests/editor/tst_editor_kills
