// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import ZoEffect.Kit 1.1

// The items and values of a type, or the values of an item.
ColumnLayout {
    id: panel

    required property FileSettings file
    required property SettingsModel settings
    property string address: "Color" // What is shown: "Watermark", "Watermark:0".
    readonly property string type: address.split(":")[0]
    readonly property bool isItem: address.indexOf(":") > 0
    readonly property var files: ({ // How a file becomes an item of a type.
        "Watermark": path => ({ wm_imageurl: path }),
        "Subtitle": path => ({ sub_fromfile: true, file: path }),
        "Audio": path => ({ audio_isfile: true, file: path })
    })
    property string title
    property string help

    onAddressChanged: refresh()
    Component.onCompleted: refresh()

    // What stands at the address may be another one, or gone.
    function refresh() {
        const row = settings.at(address);
        if (!row.valid && isItem) {
            address = type;
            return;
        }
        rows.root = row;
        title = settings.get(row, "label") || "";
        help = settings.get(row, "help") || "";
    }

    Connections {
        target: panel.file
        function onChanged() { panel.refresh(); }
        function onStatusChanged() { panel.refresh(); }
    }

    RowLayout {
        Layout.margins: 10
        Layout.bottomMargin: 0
        Layout.minimumHeight: 36

        ToolButton {
            objectName: "back"
            visible: panel.isItem
            text: "\u2190"
            onClicked: panel.address = panel.type
            Accessible.name: qsTr("Back to the list")
        }
        Label {
            objectName: "title"
            text: panel.title
            elide: Text.ElideRight
            font.bold: true
            font.pixelSize: 17
            Layout.fillWidth: true
        }
        ToolButton {
            objectName: "reset"
            text: qsTr("Reset")
            visible: panel.title !== "" && panel.type !== "Output" && panel.type !== "Tracks"
            onClicked: panel.file.reset(panel.address)
        }
    }
    Label {
        visible: panel.help !== ""
        text: panel.help
        wrapMode: Text.Wrap
        Layout.fillWidth: true
        Layout.leftMargin: 10
        Layout.rightMargin: 10
    }
    RowList {
        id: rows
        objectName: "rows"
        file: panel.file
        settings: panel.settings
        type: panel.type
        onChosen: address => panel.address = address
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 10
    }
    RowLayout {
        visible: !panel.isItem && panel.title !== "" && panel.files[panel.type] !== undefined
        Layout.margins: 10
        Layout.topMargin: 0

        Button {
            objectName: "addText"
            visible: panel.type === "Watermark"
            text: qsTr("Add a text")
            onClicked: panel.file.insert("Watermark", { wm_textcontent: qsTr("Text") })
        }
        TextField {
            id: path
            objectName: "path"
            placeholderText: panel.type === "Watermark" ? qsTr("Image") : qsTr("File")
            selectByMouse: true
            onAccepted: add.clicked()
            Layout.fillWidth: true
        }
        Button {
            id: add
            objectName: "addFile"
            text: qsTr("Add")
            enabled: path.text !== ""
            onClicked: {
                if (panel.file.insert(panel.type, panel.files[panel.type](path.text)) >= 0)
                    path.clear();
            }
        }
    }
}
