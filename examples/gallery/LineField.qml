// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

// A line of text, also for lists with commas, sizes, and paths: a file can be dropped on those.
TextField {
    required property ValueRow row
    readonly property bool isPath: row.model.control === SettingsModel.FileChooser

    objectName: row.model.address
    text: row.text
    placeholderText: isPath ? qsTr("Path, or drop a file") : qsTr("not set")
    selectByMouse: true
    onEditingFinished: {
        if (text !== row.text)
            row.model.edit = text;
        text = Qt.binding(() => row.text);
    }
    Accessible.name: row.model.label

    DropArea {
        anchors.fill: parent
        enabled: parent.isPath
        onDropped: drop => parent.row.model.edit = decodeURIComponent(drop.urls[0].toString().replace("file://", ""))
    }
}
