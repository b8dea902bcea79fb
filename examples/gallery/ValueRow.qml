// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import ZoEffect.Kit 1.1

// A value: its label, the field that suits it, and the way back to its default.
RowLayout {
    id: row

    required property var model
    required property FileSettings file
    readonly property bool isChanged: model.state === SettingsModel.Changed
    readonly property string text: model.edit === undefined ? "" : String(model.edit) // A list with commas.
    property bool isInGesture: false
    readonly property var fields: ({
        [SettingsModel.CheckBox]: "CheckField.qml",
        [SettingsModel.SpinBox]: "NumberField.qml",
        [SettingsModel.Slider]: "NumberField.qml",
        [SettingsModel.ComboBox]: "ChoiceField.qml",
        [SettingsModel.FontChooser]: "ChoiceField.qml",
        [SettingsModel.ColorButton]: "ColourField.qml",
        [SettingsModel.TextEdit]: "LinesField.qml"
    })

    // While it is true all edits are one step.
    function setInGesture(isOn) {
        if (isOn === isInGesture)
            return;
        isInGesture = isOn;
        if (isOn)
            file.beginGesture(model.label);
        else
            file.endGesture();
    }

    Component.onDestruction: setInGesture(false)

    Label {
        text: row.model.label
        wrapMode: Text.WordWrap
        font.italic: row.isChanged
        Layout.preferredWidth: row.width * 0.38
        ToolTip.visible: hover.hovered && row.model.help !== undefined
        ToolTip.text: row.model.help || ""
        ToolTip.delay: 500
        HoverHandler {
            id: hover
        }
    }
    Loader {
        Layout.fillWidth: true
        Component.onCompleted: setSource(row.fields[row.model.control] || "LineField.qml", { row: row })
    }
    ToolButton {
        objectName: row.model.address + ":reset"
        text: "\u21ba"
        Layout.preferredWidth: 28
        opacity: row.isChanged ? 1 : 0
        enabled: row.isChanged
        onClicked: row.file.reset(row.model.address)
        Accessible.name: qsTr("Back to the default: %1").arg(row.model.label)
    }
}
