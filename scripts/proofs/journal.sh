#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Kills hosts that keep a journal. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove journal [HOSTS]

Kills that many hosts (1,000 by default) at random moments while they edit settings and keep a journal. What the journal
of each brings back (settings, history, selections, clean place) is compared with the same edits made again: at most
those of the last 200 ms may be lost. The last line is "N passed, N failed" (hosts); ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"

scripts/install-packages build test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
# shellcheck source-path=SCRIPTDIR source=support/kills.sh
source scripts/proofs/support/kills.sh
build dev tst_kit_killedhosts
kill_many hosts "${1:-1000}" 100 ZOKIT_KILLS build/dev/tests/kit/tst_kit_killedhosts
