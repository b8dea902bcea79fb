// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkpictures_p.h"

#include <algorithm>

#include <QImage>
#include <QPixmapCache>

namespace {

constexpr int opaque = 255;

QPixmap painted(const QPixmap& image, int alpha)
{
    QImage pixels = image.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int row = 0; row < pixels.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(pixels.scanLine(row));
        std::transform(line, line + pixels.width(), line,
                       [alpha](QRgb pixel) { return qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), alpha); });
    }
    return QPixmap::fromImage(pixels);
}

} // namespace

QPixmap watermarkpictures::withUniformAlpha(const QPixmap& image, int alpha)
{
    const int uniform = alpha >= 0 && alpha <= opaque ? alpha : 0;
    // The cache key of a pixmap stands for its content: no other, and not this one after a change, has it again. But it
    // changes where a painter begins, not with each stroke.
    if (image.paintingActive())
        return painted(image, uniform);
    const QString key = QStringLiteral("zoeffect-watermark-%1-%2").arg(image.cacheKey()).arg(uniform);
    QPixmap result;
    if (!QPixmapCache::find(key, &result)) {
        result = painted(image, uniform);
        QPixmapCache::insert(key, result);
    }
    return result;
}
