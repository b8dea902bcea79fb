// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQml.Models 2.15
import QtQuick 2.15
import QtQuick.Controls 2.15
import ZoEffect.Kit 1.1

ApplicationWindow {
    id: window

    property string clip: Qt.application.arguments[Qt.application.arguments.length - 1]

    width: 640
    height: 480
    visible: true
    title: file.canUndo ? qsTr("Undo: %1").arg(file.undoText) : qsTr("Colours")

    FileSettings {
        id: file
        path: window.clip
        onRefused: sentence => console.warn(sentence)
    }
    SettingsModel {
        id: settings
        file: file
    }
    PreviewPicture {
        anchors.fill: parent
        file: file
    }
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: file.undo()
    }

    footer: ListView {
        objectName: "values"
        height: contentHeight
        model: DelegateModel {
            model: settings
            rootIndex: file.status === FileSettings.Ready ? settings.at("Color") : undefined
            delegate: Row {
                id: row
                required property var model
                Label {
                    width: 120
                    text: row.model.label
                }
                Slider {
                    from: row.model.visualLowest ?? 0
                    to: row.model.visualHighest ?? 0
                    stepSize: row.model.step ?? 1
                    value: row.model.edit ?? 0
                    onMoved: row.model.edit = value
                }
            }
        }
    }
}
