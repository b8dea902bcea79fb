#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Proves that no fault of the system makes the library lose, destroy or block anything. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove faults [--qt5 | --qt6] [WHAT...]

With both Qts, or one:

  injected  every system call of saving, removing, loading, setting aside and logging, in copies of a started host:
            killed there; failed with ENOSPC, EIO, EINTR, EMFILE; all failed from there on
  places    hostile places of the store and the log; a limit of file sizes in steps of 256 bytes; two processes that
            save 1,000 times at once
  damaged   every bit of a store file flipped, every length cut, and a save after each
  killed    1,000 hosts killed at random moments while they save
  strace    every system call of a host that is started anew for each: killed and failed as above, by strace
  disk      a file system in memory that is really full, with 0 to 20 free pages (its unit: 4096 bytes; the steps of
            256 bytes are those of "places")

Without WHAT all of these: about half an hour on two cores. "strace" and "disk" take the rights that root has; "disk"
makes a name space of its own for any other user, and fails where that is not allowed. The last line is
"N passed, N failed".
TEXT
}

qts=()
parts=()
for argument in "$@"; do
    case $argument in
    --qt5) qts+=(5) ;;
    --qt6) qts+=(6) ;;
    injected | places | damaged | killed | strace | disk) parts+=("$argument") ;;
    --help | -h)
        usage
        exit 0
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done
((${#qts[@]})) || qts=(5 6)
((${#parts[@]})) || parts=(injected places damaged killed strace disk)

groups=(build test strace util-linux)
[[ " ${qts[*]} " != *' 6 '* ]] || groups+=(qt6)
scripts/install-packages "${groups[@]}" || exit 1

export QT_QPA_PLATFORM=offscreen
errors=(ENOSPC EIO EINTR EMFILE)
page=4096
disk_pages=64
passed=0
failed=0
faults=0
longest=0 # Microseconds.

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

good() {
    passed=$((passed + 1))
}

bad() {
    failed=$((failed + 1))
    local text=$*
    printf '\nFAIL: %s\n' "${text:0:600}"
}

progress() {
    [[ ! -t 1 ]] || printf '\r\033[K   %s' "$*"
}

# build QT: leaves the path of the build in $build.
build() {
    build=$PWD/build/proofs/faults-qt$1
    mkdir -p build/proofs
    if command -v ccache > /dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    echo "== Qt $1: building"
    if ! {
        cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug "-DZOEFFECT_QT_MAJOR=$1" -DZOEFFECT_BUILD_TESTS=ON \
            -DZOEFFECT_WARNINGS_AS_ERRORS=ON -DZOEFFECT_TEST_FAULTS=ON &&
            cmake --build "$build" --target tst_injectedfaults tst_hostileplaces tst_damagedstore tst_killedhosts faulthost
    } > "$scratch/build.log" 2>&1; then
        cat "$scratch/build.log"
        return 1
    fi
    host=$build/tests/faults/faulthost
}

# run_test PROGRAM: a test program in its long form; its rows count.
run_test() {
    local log=$scratch/$1.log
    echo "== Qt $qt: $1"
    local status=0
    ZOEFFECT_ALL_FAULTS=1 QTEST_FUNCTION_TIMEOUT=3600000 "$build/tests/faults/$1" -maxwarnings 0 > "$log" 2>&1 || status=$?
    local rows fails
    rows=$(grep -c '^PASS   : ' "$log" || true)
    fails=$(grep -cE '^(FAIL!  |XPASS  |SKIP   |QFATAL )' "$log" || true)
    passed=$((passed + rows))
    failed=$((failed + fails))
    if ((status != 0 || fails > 0 || rows == 0)); then
        grep -v '^PASS' "$log" || true
        ((fails > 0)) || bad "$1 ended with status $status"
    fi
    if [[ $(tail -n 20 "$log") =~ ([0-9]+)' faults, longest call '([0-9]+)' us' ]]; then
        faults=$((faults + BASH_REMATCH[1]))
        ((BASH_REMATCH[2] <= longest)) || longest=${BASH_REMATCH[2]}
        sed -n '/ faults, longest call /,$p' "$log"
    fi
}

# fresh STATE: empty folders in $world, in which the host then works, and the store's file.
fresh() {
    world=$scratch/world
    rm -rf "$world"
    mkdir -p "$world/home" "$world/config" "$world/tmp" "$world/current"
    export HOME=$world/home XDG_CONFIG_HOME=$world/config TMPDIR=$world/tmp
    [[ $1 == none ]] || "$host" put "$1"
}

# written_elsewhere: prints what there is besides the store's file, its lock, the log, and one temporary file, which a
# process may leave when it is killed.
written_elsewhere() {
    (cd "$world" && find home config tmp current -mindepth 1 | LC_ALL=C sort |
        grep -vxE 'config/faulthost(/effectdefaults\.json(\.lock|\.[A-Za-z]{6})?)?|tmp/faulthost\.[12]\.log')
}

# quick COMMAND...: the host has three attempts to be quick in, since the machine may be busy with something else.
quick() {
    local said attempt status
    for ((attempt = 0; attempt < 3; attempt++)); do
        status=0
        said=$("$@") || status=$?
        [[ $said == *'a call takes too long'* ]] || break
    done
    printf '%s\n' "$said"
    return "$status"
}

# traced ARGUMENT-OF-STRACE...: runs the host under strace; what it says goes to $scratch/said.
traced() {
    # The outer group hides the word of this shell on a killed process.
    {
        (cd "$world/current" && exec strace -f --seccomp-bpf -qq -o /dev/null "$@" > "$scratch/said" 2>&1)
    } 2> /dev/null
}

# look OPERATION STATE...: whether the file holds one of the states, the next start reads it, and a later one saves.
look() {
    local operation=$1 others
    shift
    "$host" check "$@" > "$scratch/checked" 2>&1 || return 1
    others=$(written_elsewhere || true)
    if [[ -n $others ]]; then
        echo "there is $others" > "$scratch/checked"
        return 1
    fi
    [[ $operation != log ]] || return 0
    quick "$host" save > "$scratch/checked" 2>&1
}

# trace_calls OPERATION STATE: the system calls of the operation, one "NAME N" a line, where N counts the calls of that
# name from the start of the program, as strace does.
trace_calls() {
    fresh "$2"
    (cd "$world/current" && strace -f -o "$scratch/trace" "$host" "$1") > /dev/null
    awk '{ sub(/^[0-9]+ +/, "") }
         /zoeffect-fault-end/ { exit }
         match($0, /^[a-z0-9_]+\(/) {
             name = substr($0, 1, RLENGTH - 1)
             count[name]++
             if (inside) print name, count[name]
         }
         /zoeffect-fault-begin/ { inside = 1 }' "$scratch/trace"
}

# The operations of the host: name, state before, states after.
operations=(
    'save none none first'
    'save old old new'
    'remove old old removed'
    'load old old'
    'log none none'
)

run_strace() {
    local operation before states calls name number error fault status attempt
    for line in "${operations[@]}"; do
        read -r operation before states <<< "$line"
        read -ra states <<< "$states"
        trace_calls "$operation" "$before" > "$scratch/calls"
        calls=$(wc -l < "$scratch/calls")
        echo "== Qt $qt: strace, $operation over $before: $calls system calls"
        ((calls > 5)) || bad "$operation: the trace shows no operation"
        while read -r name number <&3; do
            progress "$operation over $before: $name $number"
            for error in KILL "${errors[@]}"; do
                # Want of memory is another matter: the program ends, by a fault that is not the system's files'.
                case $error-$name in
                KILL-*) ;;
                *-brk | *-mmap | *-munmap | *-mprotect | *-mremap | *-madvise | *-rt_sig* | *-futex) continue ;;
                esac
                if [[ $error == KILL ]]; then
                    fault=signal=KILL
                else
                    fault=error=$error
                fi
                faults=$((faults + 1))
                # To be quick it has three attempts: the machine may be busy with something else.
                for ((attempt = 0; attempt < 3; attempt++)); do
                    fresh "$before"
                    status=0
                    traced -e "trace=$name" -e "inject=$name:$fault:when=$number" "$host" "$operation" || status=$?
                    grep -q 'a call takes too long' "$scratch/said" || break
                done
                if [[ $(< "$scratch/said") =~ 'longest call '([0-9]+) ]] && ((BASH_REMATCH[1] > longest)); then
                    longest=${BASH_REMATCH[1]}
                fi
                if ((status != 0)) && [[ $error != KILL || $status != 137 ]]; then
                    bad "$operation, $name $number, $error: status $status: $(< "$scratch/said")"
                elif [[ $operation == log && $name == readlink && $(written_elsewhere) == tmp/exe.1.log ]]; then
                    good # So Qt calls a program whose name it cannot read; the log's name follows from that.
                elif ! look "$operation" "${states[@]}"; then
                    bad "$operation, $name $number, $error: $(< "$scratch/checked")"
                else
                    good
                fi
            done
        done 3< "$scratch/calls"
        progress ''
    done
}

# Runs in a name space of its own. fill PAGES: leaves that many pages of the disk free.
full_disk() {
    local disk=$1 free used
    host=$2
    mount -t tmpfs -o "size=$((disk_pages * page))" tmpfs "$disk"
    for ((free = 0; free <= 20; free++)); do
        scratch=$disk
        fresh old
        rm -f "$disk/filler"
        used=$(df --output=used -B "$page" "$disk" | tail -n 1)
        head -c $(((disk_pages - used - free) * page)) /dev/zero > "$disk/filler"
        said=$(quick "$host" save-large 2>&1) || { echo "BAD $free free pages: $said"; continue; }
        if ! checked=$("$host" check old large 2>&1) || [[ $checked == large && $free -lt 16 ]]; then
            echo "BAD $free free pages: $checked"
            continue
        fi
        others=$(written_elsewhere || true)
        rm "$disk/filler"
        # With room again: the next start saves.
        if [[ -n $others ]]; then
            echo "BAD $free free pages: there is $others"
        elif ! said=$(quick "$host" save 2>&1) || ! "$host" check new > /dev/null; then
            echo "BAD $free free pages: afterwards $said"
        else
            echo "GOOD $checked"
        fi
    done
}

run_disk() {
    echo "== Qt $qt: a disk with 0 to 20 free pages"
    local flags=(--mount)
    ((EUID == 0)) || flags=(--map-root-user --mount)
    mkdir -p "$scratch/disk"
    if ! unshare "${flags[@]}" bash -c "$(declare -f full_disk fresh written_elsewhere quick)
            page=$page disk_pages=$disk_pages; full_disk \"\$1\" \"\$2\"; umount \"\$1\"" \
        full_disk "$scratch/disk" "$host" > "$scratch/disk.log" 2>&1; then
        bad "no file system could be mounted: $(< "$scratch/disk.log")"
        return
    fi
    while IFS= read -r line; do
        case $line in
        'GOOD '*) good ;;
        *) bad "$line" ;;
        esac
    done < "$scratch/disk.log"
    faults=$((faults + 21))
    if ! grep -qx 'GOOD old' "$scratch/disk.log" || ! grep -qx 'GOOD large' "$scratch/disk.log"; then
        bad 'the disk was always full, or never'
    fi
}

for qt in "${qts[@]}"; do
    if ! build "$qt"; then
        bad "the build with Qt $qt failed"
        continue
    fi
    for part in "${parts[@]}"; do
        case $part in
        injected) run_test tst_injectedfaults ;;
        places) run_test tst_hostileplaces ;;
        damaged) run_test tst_damagedstore ;;
        killed) ZOEFFECT_KILLED_HOSTS=1000 run_test tst_killedhosts ;;
        strace) run_strace ;;
        disk) run_disk ;;
        esac
    done
done

echo "$faults faults injected, longest call $longest us"
echo "$passed passed, $failed failed"
((passed > 0 && failed == 0))
