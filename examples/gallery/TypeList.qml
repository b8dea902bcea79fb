// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

// The types, each with its check box and how far it is from the defaults.
ListView {
    id: list

    required property SettingsModel settings
    property string current
    signal chosen(string type)

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    model: settings
    delegate: TypeEntry {}
    ScrollBar.vertical: ScrollBar {}
}
