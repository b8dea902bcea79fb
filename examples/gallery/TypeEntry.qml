// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// A type in the list.
ItemDelegate {
    id: entry

    required property var model
    readonly property var list: ListView.view
    readonly property bool isCurrent: model.type === list.current
    readonly property color ink: isCurrent ? palette.highlightedText : palette.windowText

    objectName: model.type
    width: list.width
    height: 34
    topPadding: 0
    bottomPadding: 0
    leftPadding: 6
    rightPadding: 8
    onClicked: list.chosen(model.type)
    Accessible.name: model.label

    background: Rectangle {
        color: entry.isCurrent ? entry.palette.highlight : entry.hovered ? entry.palette.alternateBase : "transparent"
    }
    contentItem: RowLayout {
        spacing: 4
        CheckBox {
            objectName: entry.model.type + ":selected"
            opacity: entry.model.checked === undefined ? 0 : 1
            enabled: opacity > 0
            checked: entry.model.checked === true
            onToggled: {
                entry.model.checked = checked;
                checked = Qt.binding(() => entry.model.checked === true);
            }
            Accessible.name: entry.model.label
        }
        Label {
            text: entry.model.itemCount > 0 && entry.model.type !== "Effect"
                  ? qsTr("%1 (%2)").arg(entry.model.label).arg(entry.model.itemCount) : entry.model.label
            color: entry.ink
            elide: Text.ElideRight
            Layout.fillWidth: true
        }
        Label {
            objectName: entry.model.type + ":state"
            text: ["", qsTr("saved"), qsTr("changed")][entry.model.state]
            color: entry.ink
            font.pixelSize: 11
        }
    }
}
