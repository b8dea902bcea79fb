# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Read by the proofs that take numbers, or nothing. Each has a function "usage".

# only_numbers MOST ARGUMENT...: ends with the usage where one asks for help, as wrong usage where there are more than
# MOST or one is no number from 1 on.
only_numbers() {
    local most=$1 argument
    shift
    for argument in "$@"; do
        case $argument in
        --help | -h)
            usage
            exit 0
            ;;
        *[!0-9]* | '' | 0*) most=-1 ;;
        esac
    done
    if (($# > most)); then
        usage >&2
        exit 2
    fi
}
