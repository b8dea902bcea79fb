// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// A colour: as it is written, and a few to choose from.
RowLayout {
    id: field

    required property ValueRow row

    Button {
        id: swatch
        objectName: field.row.model.address + ":swatch"
        padding: 5
        onClicked: choices.open()
        Accessible.name: qsTr("Choose: %1").arg(field.row.model.label)
        Layout.preferredWidth: 44
        contentItem: Rectangle {
            color: field.row.model.edit === undefined ? "transparent" : field.row.model.edit
            border.color: swatch.palette.mid
        }

        Popup {
            id: choices
            y: swatch.height

            GridView {
                objectName: field.row.model.address + ":choices"
                implicitWidth: 120
                implicitHeight: 90
                cellWidth: 30
                cellHeight: 30
                currentIndex: -1
                model: ["#ffffff", "#c0c0c0", "#808080", "#000000", "#ff0000", "#ff8000", "#ffff00", "#00c000",
                        "#00c0c0", "#0000ff", "#8000ff", "#ff00ff"]
                delegate: AbstractButton {
                    id: one
                    required property string modelData
                    required property int index
                    width: 26
                    height: 26
                    onClicked: GridView.view.currentIndex = index
                    Accessible.name: modelData
                    contentItem: Rectangle {
                        color: one.modelData
                        border.color: one.palette.mid
                    }
                }
                onCurrentIndexChanged: {
                    if (currentIndex < 0)
                        return;
                    field.row.model.edit = model[currentIndex];
                    currentIndex = -1;
                    choices.close();
                }
            }
        }
    }
    LineField {
        row: field.row
        Layout.fillWidth: true
    }
}
