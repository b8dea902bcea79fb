// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>

class ZoEffectModel;

/// What this program is for.
struct Pictures {
    QImage watermark; ///< The watermarks on a transparent picture.
    QImage preview;   ///< The frame as the viewer will see it, and dimmed what is cut off.
};

/// Shows the settings of \a model on \a frame, whatever its size. The model stays as it is.
Pictures render(const ZoEffectModel& model, const QImage& frame);

/// Writes watermark.png and preview.png into \a folder, both or none, and gives the folder's full path. Throws
/// Failure.
QString save(const Pictures& pictures, const QString& folder);
