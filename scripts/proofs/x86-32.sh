#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Runs ./test on 32-bit x86. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove x86-32 [--qt6 | --all] [NAME...]

Runs ./test with these arguments on 32-bit x86: in a Debian bookworm for i386 that is made by debootstrap in
build/x86-32/root, entered by chroot and kept for the next time, on a copy of this checkout's files, the
untracked ones included. Takes root and a 64-bit kernel that runs 32-bit programs; the first time some ten
minutes on two processors.

Ends with the line "N passed, N failed"; 0 when every row passed, 1 otherwise, 2 on wrong usage.
TEXT
}

arguments=()
for argument in "$@"; do
    case $argument in
    --help | -h)
        usage
        exit 0
        ;;
    --qt6 | --all) arguments+=("$argument") ;;
    -*)
        usage >&2
        exit 2
        ;;
    *) arguments+=("$argument") ;;
    esac
done

if ((EUID != 0)); then
    echo "x86-32: only root can make and enter the 32-bit system" >&2
    exit 1
fi
scripts/install-packages debootstrap git util-linux

readonly folder=$PWD/build/x86-32
readonly root=$folder/root
readonly checkout=/root/libzoeffect # Within the root.
readonly enter_with=(setarch i386) # The machine calls itself i686 there.
mkdir -p "$folder"
# shellcheck source-path=SCRIPTDIR source=support/debian.sh
source scripts/proofs/support/debian.sh

# One run at a time uses the root.
exec 9> "$folder/lock"
flock 9

# The sources as they are now; what the last run built stays. Only what differs is written, with the time of now:
# the build goes by times, and a file can be older here than what was built there from the one before it.
copy_sources() {
    local file copy=$root$checkout list=$folder/files
    local -A wanted=()
    mkdir -p "$copy"
    git -c safe.directory="$PWD" ls-files -z --cached --others --exclude-standard > "$list"
    while IFS= read -r -d '' file; do
        [[ -f $file ]] || continue
        wanted[$file]=1
        if ! cmp --quiet "$file" "$copy/$file" || [[ -x $file && ! -x $copy/$file ]]; then
            mkdir -p "$(dirname "$copy/$file")"
            cp --preserve=mode "$file" "$copy/$file"
        fi
    done < "$list"
    find "$copy" -path "$copy/build" -prune -o -type f -printf '%P\0' > "$list"
    while IFS= read -r -d '' file; do
        [[ -n ${wanted[$file]:-} ]] || rm -f "$copy/$file"
    done < "$list"
}

[[ -d $root ]] || make_root i386
mount_in proc /proc
mount_in tmpfs /dev/shm
cp /etc/resolv.conf "$root/etc/resolv.conf"
copy_sources
echo "== on $(enter uname -m), $(enter dpkg --print-architecture)"

status=0
enter "$checkout/test" ${arguments[@]+"${arguments[@]}"} || status=$?
exit "$status"
