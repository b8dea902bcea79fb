# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# A Debian of its own to prove things in. To be sourced by root, with these set:
#   folder      where logs and lists go
#   root        the folder of that Debian
#   enter_with  an array, what comes before chroot; may be empty

: "${folder:?}" "${root:?}"
readonly suite=bookworm
readonly default_mirror=http://deb.debian.org/debian

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

# make_root ARCHITECTURE: by debootstrap; under another name until it is complete.
make_root() {
    local archive
    archive=$(mirror)
    echo "== making a $suite for $1 from $archive"
    rm -rf --one-file-system "$root.new"
    if ! debootstrap --variant=minbase --arch="$1" "$suite" "$root.new" "$archive" > "$folder/debootstrap.log" 2>&1; then
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

# enter COMMAND...: runs it in the root, in an environment of its own.
enter() {
    local environment=(HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8)
    local name
    for name in http_proxy https_proxy no_proxy; do
        [[ -z ${!name:-} ]] || environment+=("$name=${!name}")
    done
    # shellcheck disable=SC2154 # set by who sources this
    ${enter_with[@]+"${enter_with[@]}"} chroot "$root" /usr/bin/env -i "${environment[@]}" "$@"
}
