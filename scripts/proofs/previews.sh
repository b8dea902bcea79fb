#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Previews are what comes out. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove previews [SCENES]

Builds the kit in build/dev. Makes SCENES scenes (200 by default), anything of the settings on clips of many kinds,
previews each at three times, out of the clip and out of a kept frame, and converts it without loss: the previews have
to be the frames of the result, bit by bit. A scene that cannot be converted has to be refused by the preview in the same
words; more than one in 20 is a failure. The last line counts the scenes.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 1 "$@"
scenes=${1:-200}

scripts/install-packages build test || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev tst_kit_frames

export QT_QPA_PLATFORM=offscreen
said=$(mktemp)
trap 'rm -f "$said"' EXIT
status=0
ZOKIT_SCENES=$scenes build/dev/tests/kit/tst_kit_frames -maxwarnings 0 previewIsTheOutput > "$said" || status=$?
grep -A 2 '^FAIL' "$said" || true
passed=$(grep -c '^PASS.*(scene' "$said" || true)
failed=$((scenes - passed))
((status == 0 || failed > 0)) || failed=1
echo "found: $(sed -nE 's/.*\) ([0-9]+ previews compared, [0-9]+ scenes refused by both)$/\1/p' "$said")"
echo "$passed passed, $failed failed"
((failed == 0))
