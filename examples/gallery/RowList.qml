// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQml.Models 2.15
import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

// What is below a row of the model: items, then values under the names of their groups.
ListView {
    id: list

    required property FileSettings file
    required property SettingsModel settings
    property string type
    property var root
    signal chosen(string address)

    clip: true
    spacing: 2
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 4000 // All fields are there: none loses what is being typed.
    ScrollBar.vertical: ScrollBar {}
    model: DelegateModel {
        model: list.settings
        rootIndex: list.root
        delegate: RowEntry {}
    }
}
