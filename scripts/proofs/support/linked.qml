// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import ZoEffect.Kit 1.1

// Says why the clip cannot be had.
PreviewPicture {
    file: FileSettings {
        path: "clip.mkv"
        onStatusChanged: {
            if (status === FileSettings.Failed)
                console.warn(error);
            if (status !== FileSettings.Loading)
                Qt.exit(0);
        }
    }
}
