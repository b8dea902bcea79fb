#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# qmltypes.sh BUILD: prints what the QML module of a build tree with Qt 5 says of its types, for plugins.qmltypes. What is
# Qt's own is left out; versions are counted, and texts called, as Qt 6 does: 1.1 is 256 + 1, a string a QString.
set -euo pipefail
export QT_QPA_PLATFORM=offscreen
cat <<'TEXT'
import QtQuick.tooling 1.2

// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The types of the module, for tools. scripts/symbols writes it anew.

TEXT
/usr/lib/qt5/bin/qmlplugindump -nonrelocatable ZoEffect.Kit 1.1 "$1/qml" 2> /dev/null | awk '
    /^Module / { inside = 1 }
    /^    Component / { held = $0; next }
    held { skipping = /"Q/; if (!skipping) print held; held = "" }
    /^    dependencies: / { next }
    { sub(/exportMetaObjectRevisions: \[0\]/, "exportMetaObjectRevisions: [257]"); sub(/type: "string"/, "type: \"QString\"") }
    inside && !skipping { print }
    skipping && /^    }/ { skipping = 0 }'
