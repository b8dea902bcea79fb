# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Rows of the shell tests, in Qt Test's text form. To be sourced.

# What has passed and failed so far, for who sources this.
# shellcheck disable=SC2034 # read there
rows_passed=0
rows_failed=0

# pass NAME
pass() {
    printf 'PASS   : %s\n' "$1"
    rows_passed=$((rows_passed + 1))
}

# fail NAME [TEXT]: the text says what was found.
fail() {
    printf 'FAIL!  : %s\n' "$1"
    if [[ -n ${2:-} ]]; then
        printf '   %s\n' "${2//$'\n'/$'\n'   }"
    fi
    rows_failed=$((rows_failed + 1))
}

# check NAME COMMAND...: passes when the command ends 0; otherwise its output is shown.
check() {
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        pass "$name"
    else
        fail "$name" "$output"
        return 1
    fi
}

# quietly COMMAND...: the output of both streams, only when it fails or warns.
quietly() {
    local output
    if ! output=$("$@" 2>&1) || grep -qi 'warning' <<< "$output"; then
        printf '%s\n' "$output"
        return 1
    fi
}

# same NAME EXPECTED ACTUAL: passes when the two texts are equal; otherwise the difference is shown, lines that
# are missing with "-", lines that are too many with "+".
same() {
    if [[ $2 == "$3" ]]; then
        pass "$1"
        return
    fi
    local expected
    expected=$(mktemp)
    printf '%s\n' "$2" > "$expected"
    fail "$1" "$(diff -U0 "$expected" - <<< "$3" | grep '^[-+][^-+]' || true)"
    rm -f "$expected"
    return 1
}

# To be the last command: ends the script, 0 when no row failed.
finish() {
    exit $((rows_failed > 0))
}
