# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What the checks of all sources have in common. To be sourced with rows.sh; all of it works at the top of the tree.

checker=$(basename "$0" .sh)

# check_reasons CONFIGURATION CHECKS: a row, which passes when each of the CHECKS that are off has its reason in the
# comment of the file CONFIGURATION.
check_reasons() {
    same "$checker: $1: each check that is off has its reason" \
        "$2" "$(sed -nE 's/^# ([a-z]+-[^ ]+)  +[^ ].*/\1/p' "$1")" || true
}

# compiled BUILD: "<source> <compiler calls>" for each source of the tree that the build tree compiles, the largest
# first.
compiled() {
    awk -F'"' -v tree="$PWD/" -v build="$1/" '
        /^ *"command":/ { command = $0 }
        /^ *"file":/ && index($4, tree) == 1 && index($4, build) != 1 {
            source = substr($4, length(tree) + 1)
            calls[source] = calls[source] command
        }
        END { for (source in calls) print source, calls[source] }
    ' "$1/compile_commands.json" | while read -r source calls; do
        printf '%d %s %s\n' "$(wc -c < "$source")" "$source" "$calls"
    done | sort -rn | cut -d' ' -f2-
}

# hash_of CONFIGURATION FIND-ARGUMENTS...: of the headers and of the files named CONFIGURATION.
hash_of() {
    local configuration=$1
    shift
    find "$@" \( -name '*.h' -o -name "$configuration" \) -print0 | LC_ALL=C sort -z | xargs -0 sha256sum | sha256sum
}

# check_sources BUILD VERSION CONFIGURATION: a row, which passes when the function examine DATABASE SOURCE ends 0 for
# each source that the build tree BUILD compiles; otherwise what it printed is shown. A source is checked again only
# when it, a header of the tree, its compiler calls, how it is examined, the tool's VERSION or a file named
# CONFIGURATION has changed: the folder DATABASE, in BUILD/tests, remembers what was found clean.
check_sources() {
    local build version=$2 configuration=$3 library_hash tests_hash source calls key stamp findings='' unclean=0
    build=$(readlink -f "$1")
    export memory=$build/tests/$checker
    mkdir -p "$memory"

    # g++'s precompiled headers are none for clang's tools, and they do not know all of its options.
    sed -E 's| -Winvalid-pch -include [^ ]*/cmake_pch\.hxx||; s| -femit-class-debug-always||' \
        "$build/compile_commands.json" > "$memory/compile_commands.json"

    # What all sources depend on; the tests see the tests' headers, too.
    version+=$(declare -f examine)
    library_hash=$(hash_of "$configuration" . \( -path ./build -o -path ./.git -o -path ./tests \) -prune -o)
    tests_hash=$(hash_of "$configuration" tests)

    local keys=() todo=()
    while read -r source calls; do
        key=$({
            echo "$version $library_hash $calls"
            [[ $source != tests/* ]] || echo "$tests_hash"
            cat "$source"
        } | sha256sum)
        key=${key%% *}
        keys+=("$key")
        [[ -e $memory/$key ]] || todo+=("$source" "$memory/$key")
    done <<< "$(compiled "$build")"

    # One that is clean is remembered.
    # shellcheck disable=SC2317 # called by xargs
    examine_one() {
        local output
        if output=$(examine "$memory" "$1" 2>&1); then
            touch "$2"
        else
            grep -vE '^[0-9]+ (warnings?|errors?) .*(generated|treated as errors?)' <<< "$output" || true
        fi
    }
    export -f examine_one examine
    if ((${#todo[@]})); then
        # shellcheck disable=SC2016 # expanded by the inner shell
        findings=$(printf '%s\0' "${todo[@]}" | xargs -0 -n2 -P"$(nproc)" bash -c 'examine_one "$@"' -) || true
    fi

    # What was found clean in sources that have changed since is of no use any more.
    for stamp in "$memory"/*; do
        [[ " ${keys[*]} compile_commands.json " == *" ${stamp##*/} "* ]] || rm -f "$stamp"
    done

    for key in ${keys[@]+"${keys[@]}"}; do
        [[ -e $memory/$key ]] || unclean=$((unclean + 1))
    done
    echo "${#keys[@]} sources, $((${#todo[@]} / 2)) of them new or changed"
    if ((${#keys[@]} > 0 && unclean == 0)); then
        pass "$checker: nothing is found"
    else
        fail "$checker: nothing is found" "$findings"
    fi
}
