// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/frames.h>

#include <QPainter>

#include <zokit/graph.h>

#include "previewpaint_p.h"

namespace zokit {

QImage previewPicture(const Settings& settings, const QImage& whole)
{
    if (whole.isNull())
        return QImage();
    QImage picture = whole.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&picture);
    const QRect kept = croppedTo(settings, baseFrame(settings), false);
    if (kept.isValid()) {
        dimOutside(painter, picture.rect(), kept);
        outlineKept(painter, kept);
    }
    painter.drawImage(0, 0, watermarkPicture(settings));
    return picture;
}

} // namespace zokit
