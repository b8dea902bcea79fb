#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# release-checks.sh BUILD: compiles the sources that check the tree as a release build does and looks for what
# is left of the checks. Works in BUILD/tests/release-checks.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
qt=$(sed -n 's/^ZOEFFECT_QT_MAJOR:[A-Z]*=//p' "$build/CMakeCache.txt")
work=$build/tests/release-checks
rm -rf "$work"
mkdir -p "$work"
cd "$here/.."

read -ra flags <<< "$(pkg-config --cflags "Qt${qt}Gui")"
for folder in catalogue defaults log model platform "$build/include"; do
    flags+=("-I$folder")
done

# symbols SOURCE OPTION...: how many symbols of the compiled source belong to the checks.
symbols() {
    g++ -std=c++17 -fPIC "${flags[@]}" -c "$@" -o "$work/object.o"
    nm --demangle "$work/object.o" | grep -ciE 'treecheck|libzoeffect:' || true
}

for source in model/treecheck_p.cpp model/zoeffectitemdata.cpp model/zoeffectmodel_items.cpp; do
    same "release-checks: nothing of them in $source, optimised" 0 "$(symbols "$source" -O2 -DQT_NO_DEBUG)" || true
done
same 'release-checks: a debug build does hold them' yes \
    "$( (($(symbols model/zoeffectitemdata.cpp -DZOEFFECT_CHECK_TREES) > 0)) && echo yes)" || true
finish
