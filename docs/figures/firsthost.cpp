// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "drawing.h"
#include "figures.h"

/// The watermark of examples/first-host, before it is rescaled.
QImage firstHost()
{
    constexpr QColor grey(0x6b, 0x72, 0x7c);

    ZoEffectModel settings;
    settings.setVideoSize(1280, 720);
    settings.addDataItem("Watermark", textWatermark("Hello"));
    settings.setData("wm_fontsize", 40, "Watermark", 0);
    const QSize frame = settings.baseSize();
    const QPixmap watermark = settings.getWatermark(frame.width(), frame.height(), true);

    QImage picture = drawing::sheet(frame.height() * drawing::sheetWidth / frame.width());
    QPainter painter(&picture);
    drawing::prepare(painter);
    painter.fillRect(picture.rect(), grey);
    const QImage shown = watermark.toImage().scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(0, 0, shown);
    return picture;
}
