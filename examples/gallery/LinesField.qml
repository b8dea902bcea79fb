// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15

// Lines of text, which the picture shows as they are typed. What is typed at a time is one step.
TextArea {
    id: field

    required property ValueRow row

    objectName: row.model.address
    text: row.text
    selectByMouse: true
    wrapMode: TextArea.Wrap
    onActiveFocusChanged: row.setInGesture(activeFocus)
    onTextChanged: {
        if (text !== row.text)
            row.model.edit = text;
    }
    Accessible.name: row.model.label
    background: Rectangle {
        implicitHeight: 56
        color: field.palette.base
        border.color: field.activeFocus ? field.palette.highlight : field.palette.mid
    }
}
