// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import ZoEffect.Kit 1.1

// Ends 0 when the picture of clip.mkv with another contrast is there.
Item {
    width: 160
    height: 120

    function give(up) {
        console.warn(up);
        Qt.exit(1);
    }

    FileSettings {
        id: clip
        path: "clip.mkv"
        onRefused: sentence => give(sentence)
        onStatusChanged: {
            if (status === FileSettings.Failed)
                give(error);
            else if (status === FileSettings.Ready)
                setValue("Color:bcs_contrast", 20);
        }
    }
    PreviewPicture {
        anchors.fill: parent
        file: clip
        onPictureChanged: {
            if (error !== "")
                give(error);
            else if (isTrue && clip.canUndo)
                Qt.exit(0);
        }
    }
}
