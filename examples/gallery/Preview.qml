// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import ZoEffect.Kit 1.1

// What comes out, or the clip itself, at a moment.
ColumnLayout {
    id: preview

    required property FileSettings file

    spacing: 6

    Rectangle {
        color: "#101113"
        clip: true
        Layout.fillWidth: true
        Layout.fillHeight: true

        PreviewPicture {
            id: picture
            objectName: "picture"
            anchors.fill: parent
            file: preview.file
            show: before.checked ? PreviewPicture.Before : PreviewPicture.After
        }
        Label {
            anchors.centerIn: parent
            width: parent.width - 40
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            color: "#d0d0d0"
            text: preview.file.status === FileSettings.Empty ? qsTr("Drop a film here.")
                                                             : preview.file.status === FileSettings.Loading
                                                               ? qsTr("Looking into the film ...") : picture.error
        }
        Label {
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            visible: !picture.isTrue && picture.pictureRect.width > 0
            padding: 4
            color: "#ffffff"
            text: qsTr("Stand-in")
            background: Rectangle {
                color: "#b0000000"
            }
        }
    }
    Repeater {
        model: picture.warnings
        delegate: Label {
            required property string modelData
            text: modelData
            wrapMode: Text.Wrap
            Layout.fillWidth: true
            Layout.leftMargin: 10
            Layout.rightMargin: 10
        }
    }
    RowLayout {
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.bottomMargin: 6

        Slider {
            objectName: "time"
            enabled: preview.file.status === FileSettings.Ready
            to: Math.max(preview.file.seconds, 0.001)
            value: Math.min(picture.time, to)
            onMoved: picture.time = value
            Accessible.name: qsTr("Moment")
            Layout.fillWidth: true
        }
        Label {
            text: qsTr("%1 s").arg(picture.time.toFixed(2))
        }
        Switch {
            id: before
            objectName: "before"
            text: qsTr("Before")
        }
    }
}
