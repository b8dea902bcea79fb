#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# qml.sh BUILD: qmllint finds nothing in the QML of the tree: that of Qt 5, which looks at the form alone, and that of
# Qt 6, which knows the types, where it is installed. What the module says of its types is what they are, and what the guide
# shows is what there is.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=../support/rows.sh
source "$here/../support/rows.sh"
build=$(readlink -f "$1")
cd "$here/../.."

mapfile -t files < <(find examples tests kitquick -name '*.qml' | LC_ALL=C sort)
check 'qml: there is some' test "${#files[@]}" -ge 15 || true
check 'qml: Qt 5 finds nothing wrong' /usr/lib/qt5/bin/qmllint "${files[@]}" || true
if [[ -x /usr/lib/qt6/bin/qmllint ]]; then
    same 'qml: Qt 6 finds nothing wrong' '' "$(/usr/lib/qt6/bin/qmllint -I "$build/qml" "${files[@]}" 2>&1 || true)" || true
fi
same 'qml: the guide shows the whole program' "$(sed 1,3d examples/contrast.qml)" \
    "$(awk '/^```$/ { inside = 0 } inside; /^```qml$/ { inside = 1 }' docs/guide/gallery.md)" || true
same 'qml: the module tells its types' "$("$here/qmltypes.sh" "$build")" "$(< kitquick/module/plugins.qmltypes)" || true
finish
