// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

// One of several choices, or of the fonts that are there.
ComboBox {
    id: field

    required property ValueRow row
    readonly property bool isFont: row.model.control === SettingsModel.FontChooser
    readonly property var choices: isFont ? Qt.fontFamilies() : row.model.choices
    readonly property var current: isFont && row.model.edit !== undefined ? row.model.edit.family : row.model.edit

    objectName: row.model.address
    implicitHeight: 30
    model: isFont ? choices : row.model.choiceNames
    currentIndex: choices.indexOf(current)
    displayText: currentIndex >= 0 ? currentText : current || qsTr("not set") // Also a font that is not installed.
    onActivated: index => {
        row.model.edit = choices[index];
        currentIndex = Qt.binding(() => choices.indexOf(current));
    }
    Accessible.name: row.model.label
}
