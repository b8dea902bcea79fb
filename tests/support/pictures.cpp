// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictures.h"

#include <QColor>
#include <QFile>

ZoEffectItemData& addImage(const ZoEffectModel& model, const QString& path, const QRect& place, const Properties& more)
{
    const Properties image{{"wm_imageurl", path},
                           {"wm_hposition", place.x()},
                           {"wm_vposition", place.y()},
                           {"wm_imagewidth", place.width()},
                           {"wm_imageheight", place.height()},
                           {"wm_transparency", 0},
                           {"wm_transfactor", 2.55}};
    return *addItem(model, "Watermark", with(image, more));
}

QPixmap render(ZoEffectModel& model, const QSize& size, bool honourIgnore)
{
    return model.getWatermark(size.width(), size.height(), honourIgnore);
}

QImage pixelsOf(const QPixmap& picture)
{
    return picture.toImage().convertToFormat(QImage::Format_ARGB32);
}

QString colorAt(const QPixmap& picture, int x, int y)
{
    return picture.isNull() ? QStringLiteral("null")
                            : QColor::fromRgba(pixelsOf(picture).pixel(x, y)).name(QColor::HexArgb);
}

QRect shownArea(const QPixmap& picture)
{
    const QImage pixels = pixelsOf(picture);
    QRect area;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            if (qAlpha(pixels.pixel(x, y)) != 0)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

QImage filled(const QSize& size, const QColor& color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

QString PictureFolder::add(const QString& name, const QByteArray& bytes) const
{
    QFile target(file(name));
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        qFatal("no picture");
    return file(name);
}

QString PictureFolder::add(const QString& name, const QImage& image) const
{
    if (!image.save(file(name)))
        qFatal("no picture");
    return file(name);
}

qint64 peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

bool forgetPeakMemory()
{
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    return references.open(QIODevice::WriteOnly) && references.write("5") == 1;
}
