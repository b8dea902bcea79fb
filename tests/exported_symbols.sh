#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# exported_symbols.sh LIBRARY [KIT [KITQUICK]]: compares what the shared library, the kit, and the kit for Qt Quick export
# with debian/libzoeffect1.symbols, debian/libzoeffectkit1.symbols and debian/libzoeffectkitquick1.symbols.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"

# Qt 6 calls QStringList and QVector a QList; a QList of Qt 5 is one of the tree's indexes.
alike='s/QList<QString>/QStringList/g; s/QList</QVector</g'

# exported LIBRARY: the names with their kind; a constructor or destructor stands once for each of its variants.
exported() {
    nm -DC --defined-only "$1" | sed -E "s/^[0-9a-f]+ //; $alike" | LC_ALL=C sort -u
}

# compared WHAT LIBRARY LIST
compared() {
    local names expected
    names=$(exported "$2" | sed -E 's/^. //' | LC_ALL=C sort -u)
    expected=$(sed -nE 's/^ \(c\+\+\)"(.*)@Base" [0-9.]+$/\1/p' "$here/../debian/$3.symbols" | sed "$alike" | LC_ALL=C sort)
    same "exported symbols: $1: no name is listed twice" '' "$(uniq -d <<< "$expected")" || true
    same "exported symbols: $1: those of the public headers and no others" "$expected" "$names" || true
}

compared library "$1" libzoeffect1
same 'exported symbols: library: data are the static members and meta-objects' \
    "$(printf '%s\n' ZoEffectItemData::staticMetaObject ZoEffectItemDefaultValMgr::s_{Instance,supportTypes} \
        ZoEffectModel::{s_EffectItems,staticMetaObject})" \
    "$(exported "$1" | sed -nE 's/^[BDR] //p' | LC_ALL=C sort)" || true
if (($# > 1)); then
    compared kit "$2" libzoeffectkit1
    same 'exported symbols: kit: data are the meta-objects' '' \
        "$(exported "$2" | sed -nE 's/^[BDR] //p' | grep -v '^zokit::[A-Za-z]*::staticMetaObject$' || true)" || true
fi
if (($# > 2)); then
    compared 'kit for Qt Quick' "$3" libzoeffectkitquick1
fi
finish
