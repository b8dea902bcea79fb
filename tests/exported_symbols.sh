#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# exported_symbols.sh LIBRARY: compares what the shared library exports with debian/libzoeffect1.symbols.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
library=$1

# The names with their kind; a constructor or destructor stands once for each of its variants.
exported() {
    nm -DC --defined-only "$library" | sed -E 's/^[0-9a-f]+ //' | LC_ALL=C sort -u
}

# Qt 6 has no class QStringList of its own.
names=$(exported | sed -E 's/^. //; s/QList<QString>/QStringList/g' | LC_ALL=C sort -u)
expected=$(sed -nE 's/^ \(c\+\+\)"(.*)@Base" [0-9.]+$/\1/p' "$here/../debian/libzoeffect1.symbols" | LC_ALL=C sort)

same 'exported symbols: no name is listed twice' "" "$(uniq -d <<< "$expected")" || true
same 'exported symbols: those of the public headers and no others' "$expected" "$names" || true
same 'exported symbols: data are the static members and meta-objects' \
    "$(printf '%s\n' ZoEffectItemData::staticMetaObject ZoEffectItemDefaultValMgr::s_{Instance,supportTypes} \
        ZoEffectModel::{s_EffectItems,staticMetaObject})" \
    "$(exported | sed -nE 's/^[BDR] //p' | LC_ALL=C sort)" || true
finish
