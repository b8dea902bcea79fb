// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

// An item or a value, under the name of its group where that begins.
Column {
    id: entry

    required property var model
    readonly property var list: ListView.view
    readonly property string group: model.group || ""
    readonly property string former: model.index === 0 ? ""
        : list.settings.get(list.settings.index(model.index - 1, 0, list.root), "group") || ""

    width: list.width - 14

    Label {
        visible: entry.group !== entry.former
        text: entry.group
        font.bold: true
        topPadding: 8
        bottomPadding: 2
    }
    Loader {
        width: parent.width
        Component.onCompleted: {
            if (entry.model.kind === SettingsModel.ItemRow)
                setSource("ItemRow.qml", { model: entry.model, list: entry.list });
            else if (entry.model.kind === SettingsModel.PropertyRow)
                setSource("ValueRow.qml", { model: entry.model, file: entry.list.file });
        }
    }
}
