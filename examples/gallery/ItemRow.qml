// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// An item: its check box, its name, and where it stands.
RowLayout {
    id: row

    required property var model
    required property RowList list
    readonly property string address: list.type + ":" + model.index

    spacing: 0

    CheckBox {
        objectName: row.address + ":selected"
        checked: row.model.checked === true
        onToggled: {
            row.model.checked = checked;
            checked = Qt.binding(() => row.model.checked === true);
        }
        Accessible.name: row.model.label
    }
    ItemDelegate {
        objectName: row.address
        text: row.model.label
        onClicked: row.list.chosen(row.address)
        Layout.fillWidth: true
    }
    ToolButton {
        objectName: row.address + ":up"
        text: "\u2191"
        enabled: row.model.index > 0
        onClicked: row.list.file.move(row.list.type, row.model.index, row.model.index - 1)
        Accessible.name: qsTr("Up: %1").arg(row.model.label)
    }
    ToolButton {
        objectName: row.address + ":down"
        text: "\u2193"
        enabled: row.model.index < row.list.file.count(row.list.type) - 1
        onClicked: row.list.file.move(row.list.type, row.model.index, row.model.index + 1)
        Accessible.name: qsTr("Down: %1").arg(row.model.label)
    }
    ToolButton {
        objectName: row.address + ":remove"
        text: "\u00d7"
        visible: row.list.type !== "Effect"
        onClicked: row.list.file.remove(row.list.type, row.model.index)
        Accessible.name: qsTr("Remove: %1").arg(row.model.label)
    }
}
