// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import ZoEffect.Kit 1.1

// All settings of a clip: the types, what comes out, and the values of the type or item that is chosen.
ApplicationWindow {
    id: window

    property string clip
    property bool isDark: system.window.hslLightness < 0.5
    property string sentence // Why the last edit was refused.
    readonly property alias file: file
    readonly property alias settings: settings
    readonly property alias panel: panel

    width: 1120
    height: 700
    minimumWidth: 820
    minimumHeight: 420
    visible: true
    title: file.path === "" ? qsTr("Gallery") : qsTr("%1 - Gallery").arg(file.path)

    palette.window: isDark ? "#2a2c2f" : "#f2f2f3"
    palette.windowText: isDark ? "#e8e8e8" : "#202124"
    palette.base: isDark ? "#1e2022" : "#ffffff"
    palette.alternateBase: isDark ? "#33363a" : "#e6e7ea"
    palette.text: isDark ? "#e8e8e8" : "#202124"
    palette.button: isDark ? "#3a3d41" : "#e9eaec"
    palette.buttonText: isDark ? "#e8e8e8" : "#202124"
    palette.highlight: isDark ? "#4c8fd6" : "#1f6fc4"
    palette.highlightedText: "#ffffff"
    palette.mid: isDark ? "#6b7076" : "#a8abb0"
    palette.midlight: isDark ? "#4a4e53" : "#d4d6da"
    palette.light: isDark ? "#55595f" : "#ffffff"
    palette.dark: isDark ? "#9a9fa6" : "#73777d"
    palette.shadow: "#101010"

    background: Rectangle {
        color: window.palette.window
    }

    SystemPalette {
        id: system
    }
    FileSettings {
        id: file
        path: window.clip
        onRefused: refusal => window.sentence = refusal
        onChanged: window.sentence = ""
    }
    SettingsModel {
        id: settings
        file: file
    }
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: file.undo()
    }
    Shortcut {
        sequence: "Ctrl+Shift+Z"
        onActivated: file.redo()
    }
    DropArea {
        anchors.fill: parent
        onDropped: drop => {
            if (drop.hasUrls)
                file.load(drop.urls[0].toString());
        }
    }

    header: ToolBar {
        RowLayout {
            anchors.fill: parent
            ToolButton {
                objectName: "undo"
                text: file.canUndo ? qsTr("Undo: %1").arg(file.undoText) : qsTr("Undo")
                enabled: file.canUndo
                onClicked: file.undo()
            }
            ToolButton {
                objectName: "redo"
                text: file.canRedo ? qsTr("Redo: %1").arg(file.redoText) : qsTr("Redo")
                enabled: file.canRedo
                onClicked: file.redo()
            }
            Item {
                Layout.fillWidth: true
            }
            ToolButton {
                objectName: "resetAll"
                text: qsTr("Reset all")
                enabled: file.status === FileSettings.Ready
                onClicked: file.resetAll()
            }
            Switch {
                text: qsTr("Dark")
                checked: window.isDark
                onToggled: window.isDark = checked
            }
        }
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        TypeList {
            settings: settings
            current: panel.type
            onChosen: type => panel.address = type
            Layout.preferredWidth: 240
            Layout.minimumWidth: 240
            Layout.fillHeight: true
        }
        Preview {
            file: file
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
        Panel {
            id: panel
            file: file
            settings: settings
            Layout.preferredWidth: window.width * 0.36
            Layout.minimumWidth: 350
            Layout.maximumWidth: 480
            Layout.fillHeight: true
        }
    }

    footer: Label {
        objectName: "sentence"
        visible: text !== ""
        text: window.sentence !== "" ? window.sentence : file.error
        padding: 8
        wrapMode: Text.Wrap
        background: Rectangle {
            color: window.isDark ? "#6d3030" : "#f7d4d0"
        }
    }
}
