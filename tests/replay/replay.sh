#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# replay.sh REPLAY MAKE_SESSION: replays the recorded sessions and compares what comes of them with what is expected,
# and draws those that were drawn again.
set -euo pipefail
replay=$1
make_session=$2
folder=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$folder/../support/rows.sh"

messages=$(mktemp)
trap 'rm -f "$messages"' EXIT

for session in "$folder"/recordings/*.session; do
    name=$(basename "$session" .session)
    if outcome=$("$replay" "$session" 2> "$messages"); then
        same "replay: $name" "$(cat "${session%.session}.expected")" "$outcome" || true
    else
        fail "replay: $name" "$(tail -n 40 "$messages")"
    fi
done

for session in "$folder"/recordings/*.session; do
    name=$(basename "$session" .session)
    read -r hash program kind seed count < "$session"
    if [[ "$hash $program" == '# make-session' ]]; then
        same "replay: $name is drawn as it was" "$(cat "$session")" "$("$make_session" "$kind" "$seed" "$count")" || true
    fi
done
finish
