// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15

// Yes or no. As with all fields, what is refused is shown as it was.
CheckBox {
    required property ValueRow row

    objectName: row.model.address
    text: checked ? qsTr("Yes") : qsTr("No")
    checked: row.model.edit === true
    onToggled: {
        row.model.edit = checked;
        checked = Qt.binding(() => row.model.edit === true);
    }
    Accessible.name: row.model.label
}
