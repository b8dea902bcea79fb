#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Runs ./test on 32-bit x86. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: x86-32 [--qt6 | --all] [NAME...]

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

readonly suite=bookworm
readonly default_mirror=http://deb.debian.org/debian
readonly folder=$PWD/build/x86-32
readonly root=$folder/root
readonly checkout=/root/libzoeffect # Within the root.
mkdir -p "$folder"

# One run at a time uses the root.
exec 9> "$folder/lock"
flock 9

# The first Debian archive that this machine installs from, in either form of its lists.
mirror() {
    local lists=() list found=
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
        [[ ! -f $list ]] || lists+=("$list")
    done
    if ((${#lists[@]})); then
        found=$(sed -nE 's/^(deb|URIs:)[[:space:]]+(\[[^]]*\][[:space:]]+)?([a-z]+:[^[:space:]]*\/debian)\/?([[:space:]].*)?$/\3/p' "${lists[@]}")
    fi
    found=${found%%$'\n'*}
    echo "${found:-$default_mirror}"
}

# Under another name until it is complete.
make_root() {
    local archive
    archive=$(mirror)
    echo "== making a $suite for i386 from $archive"
    rm -rf --one-file-system "$root.new"
    if ! debootstrap --arch=i386 --variant=minbase "$suite" "$root.new" "$archive" > "$folder/debootstrap.log" 2>&1; then
        tail -n 20 "$folder/debootstrap.log" >&2
        exit 1
    fi
    mv "$root.new" "$root"
}

mounted=()
trap '((${#mounted[@]} == 0)) || umount --lazy "${mounted[@]}"' EXIT
trap 'exit 1' HUP INT TERM

# mount_in TYPE FOLDER: unless something is mounted there.
mount_in() {
    mkdir -p "$root$2"
    if ! mountpoint --quiet "$root$2"; then
        mount -t "$1" "$1" "$root$2"
        mounted+=("$root$2")
    fi
}

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

# enter COMMAND...: runs it in the root, where the machine calls itself i686, in an environment of its own.
enter() {
    local environment=(HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8)
    local name
    for name in http_proxy https_proxy no_proxy; do
        [[ -z ${!name:-} ]] || environment+=("$name=${!name}")
    done
    setarch i386 chroot "$root" /usr/bin/env -i "${environment[@]}" "$@"
}

[[ -d $root ]] || make_root
mount_in proc /proc
mount_in tmpfs /dev/shm
cp /etc/resolv.conf "$root/etc/resolv.conf"
copy_sources
echo "== on $(enter uname -m), $(enter dpkg --print-architecture)"

status=0
enter "$checkout/test" ${arguments[@]+"${arguments[@]}"} || status=$?
exit "$status"
